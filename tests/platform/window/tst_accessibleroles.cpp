// SPDX-License-Identifier: GPL-3.0-or-later

// What the controls are called to a screen reader.

#include "platform/window/combolist.h"
#include "platform/window/listbar.h"
#include "platform/window/tabpages.h"
#include "platform/window/treeview.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QTest>

using namespace Qt::StringLiterals;

class AccessibleRolesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listBarIsAToolBar();
    void tabPagesAreAGroup();
    void droppedListBearsTheNameOfItsCombo();
    void columnOfATreeHasNoNumber();
};

void AccessibleRolesTest::listBarIsAToolBar()
{
    platform::ListBar bar;
    bar.setAccessibleName(u"Clientes"_s);

    const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&bar);

    QCOMPARE(accessible->role(), QAccessible::ToolBar);
    QCOMPARE(accessible->text(QAccessible::Name), u"Clientes"_s);
}

void AccessibleRolesTest::tabPagesAreAGroup()
{
    platform::TabPages pages;

    QCOMPARE(QAccessible::queryAccessibleInterface(&pages)->role(), QAccessible::Grouping);
}

void AccessibleRolesTest::droppedListBearsTheNameOfItsCombo()
{
    platform::ComboList combo;
    combo.setAccessibleName(u"Mes"_s);

    combo.show();

    QCOMPARE(combo.view()->accessibleName(), u"Mes"_s);
}

void AccessibleRolesTest::columnOfATreeHasNoNumber()
{
    const platform::TreeView tree;

    QCOMPARE(tree.headerItem()->text(0), QString());
}

QTEST_MAIN(AccessibleRolesTest)
#include "tst_accessibleroles.moc"
