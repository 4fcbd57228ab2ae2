// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/flexgrid.h"
#include "platform/window/form.h"
#include "platform/window/formkeys.h"
#include "platform/window/textbox.h"

#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;
using platform::Form;
using platform::FormKeys;

class FormKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { form.reset(); }

    void formSeesTheKeyBeforeTheControl();
    void keyGoesOnToTheControl();
    void eatenKeyNeverReachesTheControl();
    void keyThatAControlLeavesIsSeenOnce();
    void tabIsSeen();
    void keysOfACellEditorAreSeen();
    void keyThatOpensAnEditorIsSeenOnce();
    void keysOfAnotherWindowAreNotSeen();
    void watchIsTheSameAtEachCall();

private:
    std::unique_ptr<Form> form;
    platform::TextBox* field = nullptr;
    platform::FlexGrid* grid = nullptr;
    QList<int> seen;
};

void FormKeysTest::init()
{
    form = std::make_unique<Form>();
    auto* layout = new QVBoxLayout(form.get());
    field = new platform::TextBox;
    grid = new platform::FlexGrid;
    grid->setEditable(true);
    layout->addWidget(field);
    layout->addWidget(grid);
    seen.clear();
    connect(form->watchKeys(), &FormKeys::keyDown, form.get(), [this](int key, bool*) {
        // Announced modifiers aside.
        if (key != Qt::Key_Alt && key != Qt::Key_Shift)
            seen.append(key);
    });
    form->showModeless();
    field->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(form.get()));
}

void FormKeysTest::formSeesTheKeyBeforeTheControl()
{
    QString textAtKey = u"?"_s;
    connect(form->watchKeys(), &FormKeys::keyDown, form.get(),
            [&](int, bool*) { textAtKey = field->text(); });

    QTest::keyClick(field, Qt::Key_A);

    QCOMPARE(textAtKey, QString());
}

void FormKeysTest::keyGoesOnToTheControl()
{
    QTest::keyClick(field, Qt::Key_A);

    QCOMPARE(seen, QList<int>{Qt::Key_A});
    QCOMPARE(field->text(), u"a"_s);
}

void FormKeysTest::eatenKeyNeverReachesTheControl()
{
    connect(form->watchKeys(), &FormKeys::keyDown, form.get(), [](int, bool* eaten) { *eaten = true; });

    QTest::keyClick(field, Qt::Key_A);

    QCOMPARE(field->text(), QString());
}

void FormKeysTest::keyThatAControlLeavesIsSeenOnce()
{
    QTest::keyClick(field, Qt::Key_Return);

    QCOMPARE(seen, QList<int>{Qt::Key_Return});
}

void FormKeysTest::tabIsSeen()
{
    QTest::keyClick(field, Qt::Key_Tab);

    QCOMPARE(seen, QList<int>{Qt::Key_Tab});
}

void FormKeysTest::keysOfACellEditorAreSeen()
{
    grid->setFocus();
    QTest::keyClick(grid, Qt::Key_F2);
    seen.clear();

    QTest::keyClick(grid->indexWidget(grid->currentIndex()), Qt::Key_B);

    QCOMPARE(seen, QList<int>{Qt::Key_B});
}

void FormKeysTest::keyThatOpensAnEditorIsSeenOnce()
{
    grid->setFocus();

    QTest::keyClick(grid, Qt::Key_1);
    QVERIFY(grid->isEditing());

    QCOMPARE(seen, QList<int>{Qt::Key_1});
}

void FormKeysTest::keysOfAnotherWindowAreNotSeen()
{
    platform::TextBox other;
    other.show();
    QVERIFY(QTest::qWaitForWindowActive(&other));

    QTest::keyClick(&other, Qt::Key_A);

    QVERIFY(seen.isEmpty());
}

void FormKeysTest::watchIsTheSameAtEachCall()
{
    QCOMPARE(form->watchKeys(), form->watchKeys());
}

QTEST_MAIN(FormKeysTest)
#include "tst_formkeys.moc"
