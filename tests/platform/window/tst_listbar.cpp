// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/window/listbar.h"
#include "platform/window/listbaritem.h"
#include "platform/window/textbox.h"
#include "support/failureof.h"

#include <QHBoxLayout>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using platform::ListBar;
using platform::ListBarItem;
using platform::TextBox;
using support::failureOf;

class ListBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { window.reset(); }

    void clickReportsTheKey();
    void fieldLeftHasItsRuleRunBeforeTheItem();
    void enterPressesTheCurrentItem();
    void arrowsMoveBetweenItems();
    void blankPressesTheCurrentItem();
    void letterPressesTheItem();
    void altKeyTakesTheFocusAndPresses();
    void altKeysCanBeTurnedOff();
    void doubleKeyFails();
    void unknownKeyFails();
    void itemsAreNamedWithoutTheMark();

private:
    [[nodiscard]] ListBarItem* item(const QString& key) const;

    std::unique_ptr<QWidget> window;
    ListBar* bar = nullptr;
    TextBox* field = nullptr;
    QStringList pressed;
};

void ListBarTest::init()
{
    window = std::make_unique<QWidget>();
    auto* layout = new QHBoxLayout(window.get());
    bar = new ListBar;
    field = new TextBox;
    layout->addWidget(bar);
    layout->addWidget(field);
    bar->addGroup(u"Clientes S.A.T."_s);
    bar->addItem(u"NUEVA"_s, u"&Nuevo"_s);
    bar->addItem(u"GRABAR"_s, u"&Grabar"_s);
    bar->addItem(u"CORREO"_s, u"Correo"_s);
    pressed.clear();
    connect(bar, &ListBar::ItemClick, bar, [this](const QString& key) { pressed.append(key); });
    window->show();
    field->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

ListBarItem* ListBarTest::item(const QString& key) const
{
    const auto items = bar->findChildren<ListBarItem*>();
    const auto found =
        std::find_if(items.begin(), items.end(), [&](const auto* one) { return one->key() == key; });
    return found == items.end() ? nullptr : *found;
}

void ListBarTest::clickReportsTheKey()
{
    QTest::mouseClick(item(u"GRABAR"_s), Qt::LeftButton);

    QCOMPARE(pressed, QStringList{u"GRABAR"_s});
}

void ListBarTest::fieldLeftHasItsRuleRunBeforeTheItem()
{
    bool pressedAtLeaving = true;
    connect(field, &TextBox::lostFocus, field, [&] { pressedAtLeaving = !pressed.isEmpty(); });

    QTest::mouseClick(item(u"GRABAR"_s), Qt::LeftButton);

    QVERIFY(!pressedAtLeaving);
    QVERIFY(bar->hasFocus());
}

void ListBarTest::enterPressesTheCurrentItem()
{
    bar->setFocus();

    QTest::keyClick(bar, Qt::Key_Return);

    QCOMPARE(pressed, QStringList{u"NUEVA"_s});
}

void ListBarTest::arrowsMoveBetweenItems()
{
    bar->setFocus();

    for (int i = 0; i < 9; ++i)
        QTest::keyClick(bar, Qt::Key_Down);
    QTest::keyClick(bar, Qt::Key_Up);
    QTest::keyClick(bar, Qt::Key_Return);

    QCOMPARE(pressed, QStringList{u"GRABAR"_s});
}

void ListBarTest::blankPressesTheCurrentItem()
{
    bar->setFocus();

    QTest::keyClick(bar, Qt::Key_End);
    QTest::keyClick(bar, Qt::Key_Space);

    QCOMPARE(pressed, QStringList{u"CORREO"_s});
}

void ListBarTest::letterPressesTheItem()
{
    bar->setFocus();

    QTest::keyClick(bar, Qt::Key_G);
    QTest::keyClick(bar, Qt::Key_C);

    QCOMPARE(pressed, QStringList{u"GRABAR"_s});
}

void ListBarTest::altKeyTakesTheFocusAndPresses()
{
    QTest::keyClick(field, Qt::Key_G, Qt::AltModifier);

    QCOMPARE(pressed, QStringList{u"GRABAR"_s});
    QVERIFY(bar->hasFocus());
}

void ListBarTest::altKeysCanBeTurnedOff()
{
    bar->setAltKeys(false);

    QTest::keyClick(field, Qt::Key_G, Qt::AltModifier);

    QVERIFY(pressed.isEmpty());
}

void ListBarTest::doubleKeyFails()
{
    QCOMPARE(failureOf([&] { bar->addItem(u"NUEVA"_s, u"Otra"_s); }), platform::kTreeKeyNotUnique);
    QCOMPARE(bar->keys().size(), 3);
}

void ListBarTest::unknownKeyFails()
{
    QCOMPARE(failureOf([&] { bar->activate(u"NADA"_s); }), platform::kTreeNoSuchKey);
}

void ListBarTest::itemsAreNamedWithoutTheMark()
{
    QCOMPARE(item(u"GRABAR"_s)->accessibleName(), u"Grabar"_s);
}

QTEST_MAIN(ListBarTest)
#include "tst_listbar.moc"
