// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/window/treeview.h"
#include "support/failureof.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using platform::TreeView;
using support::failureOf;

class TreeViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { window.reset(); }

    void nothingIsSelectedAtFirst();
    void firstFocusSelectsNothing();
    void unknownRelativeFails();
    void doubleKeyFails();
    void keyOfDigitsFails();
    void nodeWithoutAKeyIsAdded();
    void childrenComeInTheOrderOfAdding();
    void imageIndexIsKept();
    void clearingRemovesAllAndLeavesNothingSelected();
    void clearedKeysMayComeAgain();
    void clickOfTheUserReportsTheNode();
    void selectingByCodeReportsNothing();
    void enterAndBlankReportTheNode_data();
    void enterAndBlankReportTheNode();
    void arrowsOnlyMoveTheSelection();
    void doubleClickIsReported();
    void ensuringANodeVisibleOpensItsParents();
    void textAndImageOfANodeCanChange();

private:
    [[nodiscard]] QPoint placeOf(const QString& text) const;

    std::unique_ptr<QWidget> window;
    TreeView* tree = nullptr;
};

void TreeViewTest::init()
{
    window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(window.get());
    auto* field = new QLineEdit;
    tree = new TreeView;
    layout->addWidget(field);
    layout->addWidget(tree);
    tree->nodesAdd({}, u"A"_s, u"Consultas Pendientes"_s, 3);
    tree->nodesAdd({}, u"B"_s, u"Consultas Cerradas"_s, 2);
    tree->nodesAdd(u"A"_s, u"A1"_s, u"0000000012 tema"_s, 4);
    tree->nodesAdd(u"A"_s, u"A2"_s, u"0000000013 otro"_s, 4);
    window->resize(400, 400);
    window->show();
    field->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

QPoint TreeViewTest::placeOf(const QString& text) const
{
    return tree->visualItemRect(tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive).first())
        .center();
}

void TreeViewTest::nothingIsSelectedAtFirst()
{
    QCOMPARE(failureOf([&] { return tree->selectedText(); }), platform::kObjectNotSet);
    QCOMPARE(failureOf([&] { return tree->selectedKey(); }), platform::kObjectNotSet);
}

void TreeViewTest::firstFocusSelectsNothing()
{
    tree->setFocus(Qt::TabFocusReason);

    QCOMPARE(failureOf([&] { return tree->selectedText(); }), platform::kObjectNotSet);
}

void TreeViewTest::unknownRelativeFails()
{
    QCOMPARE(failureOf([&] { tree->nodesAdd(u"Z"_s, u"Z1"_s, u"x"_s, 4); }), platform::kTreeNoSuchKey);
    QCOMPARE(tree->nodesCount(), 4);
}

void TreeViewTest::doubleKeyFails()
{
    QCOMPARE(failureOf([&] { tree->nodesAdd({}, u"A"_s, u"x"_s, 3); }), platform::kTreeKeyNotUnique);
}

void TreeViewTest::keyOfDigitsFails()
{
    QCOMPARE(failureOf([&] { tree->nodesAdd({}, u"12"_s, u"x"_s, 3); }), platform::kTreeKeyInvalid);
}

void TreeViewTest::nodeWithoutAKeyIsAdded()
{
    tree->nodesAdd(u"B"_s, {}, u"sin clave"_s, 4);
    tree->nodesAdd(u"B"_s, {}, u"sin clave"_s, 4);

    QCOMPARE(tree->nodesCount(), 6);
}

void TreeViewTest::childrenComeInTheOrderOfAdding()
{
    QCOMPARE(tree->topLevelItem(0)->child(0)->text(0), u"0000000012 tema"_s);
    QCOMPARE(tree->topLevelItem(0)->child(1)->text(0), u"0000000013 otro"_s);
}

void TreeViewTest::imageIndexIsKept()
{
    QCOMPARE(tree->nodeImage(u"A"_s), 3);
    tree->selectNode(u"A1"_s);

    QCOMPARE(tree->selectedImage(), 4);
    QCOMPARE(tree->selectedParentKey(), u"A"_s);
}

void TreeViewTest::clearingRemovesAllAndLeavesNothingSelected()
{
    tree->selectNode(u"A1"_s);
    const QSignalSpy clicks(tree, &TreeView::nodeClick);

    tree->nodesClear();

    QCOMPARE(tree->nodesCount(), 0);
    QCOMPARE(failureOf([&] { return tree->selectedText(); }), platform::kObjectNotSet);
    QVERIFY(clicks.isEmpty());
}

void TreeViewTest::clearedKeysMayComeAgain()
{
    tree->nodesClear();

    tree->nodesAdd({}, u"A"_s, u"Consultas Pendientes"_s, 3);

    QCOMPARE(tree->nodeText(u"A"_s), u"Consultas Pendientes"_s);
}

void TreeViewTest::clickOfTheUserReportsTheNode()
{
    tree->setNodeExpanded(u"A"_s, true);
    const QSignalSpy clicks(tree, &TreeView::nodeClick);

    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, placeOf(u"0000000013 otro"_s));

    QCOMPARE(clicks.size(), 1);
    QCOMPARE(clicks.first(), (QVariantList{u"A2"_s, 4}));
    QCOMPARE(tree->selectedText(), u"0000000013 otro"_s);
}

void TreeViewTest::selectingByCodeReportsNothing()
{
    const QSignalSpy clicks(tree, &TreeView::nodeClick);

    tree->selectNode(u"A1"_s);

    QVERIFY(clicks.isEmpty());
    QCOMPARE(tree->selectedKey(), u"A1"_s);
}

void TreeViewTest::enterAndBlankReportTheNode_data()
{
    QTest::addColumn<int>("key");

    QTest::newRow("Enter") << int(Qt::Key_Return);
    QTest::newRow("blank") << int(Qt::Key_Space);
}

void TreeViewTest::enterAndBlankReportTheNode()
{
    QFETCH(int, key);
    tree->selectNode(u"A1"_s);
    tree->setFocus();
    const QSignalSpy clicks(tree, &TreeView::nodeClick);

    QTest::keyClick(tree, Qt::Key(key));

    QCOMPARE(clicks.size(), 1);
    QCOMPARE(clicks.first().first().toString(), u"A1"_s);
}

void TreeViewTest::arrowsOnlyMoveTheSelection()
{
    tree->setNodeExpanded(u"A"_s, true);
    tree->selectNode(u"A1"_s);
    const QSignalSpy clicks(tree, &TreeView::nodeClick);

    QTest::keyClick(tree, Qt::Key_Down);

    QCOMPARE(tree->selectedKey(), u"A2"_s);
    QVERIFY(clicks.isEmpty());
}

void TreeViewTest::doubleClickIsReported()
{
    tree->setNodeExpanded(u"A"_s, true);
    const QSignalSpy doubles(tree, &TreeView::doubleClickedNode);
    const QPoint place = placeOf(u"0000000012 tema"_s);

    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, place);

    QCOMPARE(doubles.size(), 1);
    QCOMPARE(tree->selectedKey(), u"A1"_s);
}

void TreeViewTest::ensuringANodeVisibleOpensItsParents()
{
    tree->ensureNodeVisible(u"A2"_s);

    QVERIFY(tree->topLevelItem(0)->isExpanded());
    QVERIFY(!tree->topLevelItem(1)->isExpanded());
}

void TreeViewTest::textAndImageOfANodeCanChange()
{
    tree->setNodeText(u"A1"_s, u"nuevo"_s);
    tree->setNodeImage(u"A1"_s, 5);

    QCOMPARE(tree->nodeText(u"A1"_s), u"nuevo"_s);
    QCOMPARE(tree->nodeImage(u"A1"_s), 5);
}

QTEST_MAIN(TreeViewTest)
#include "tst_treeview.moc"
