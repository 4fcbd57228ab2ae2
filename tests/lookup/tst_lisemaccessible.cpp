// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/lookupfixture.h"

#include <QAccessible>
#include <QCheckBox>
#include <QtTest>

#include <optional>

using namespace Qt::StringLiterals;
using lookuptest::LookupFixture;

namespace {

constexpr double kZones = 9;
constexpr double kTypes = 15;
constexpr int kManyRows = 100'000;

lookuptest::Rows zones(int count)
{
    lookuptest::Rows rows;
    rows.reserve(count);
    for (int row = 0; row < count; ++row)
        rows.append({u"%1"_s.arg(row + 1, 10, 10, QChar(u'0')), u"Zona %1"_s.arg(row, 6, 10, QChar(u'0'))});
    return rows;
}

} // namespace

/// What a screen reader does with the list of the lookup.
class LisemAccessibleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { f.emplace(); }
    void cleanup() { f.reset(); }

    void hundredThousandRowsCanBeWalked();
    void cellBearsItsColumnAndText();
    void emptyListHasNoCells();
    void cellOfAListThatWasReplacedIsInvalid();
    void listClosedWhileItIsReadIsGone();
    void tickSaysWhatItDoesToTheList_data();
    void tickSaysWhatItDoesToTheList();

private:
    QAccessibleInterface* list();
    std::optional<LookupFixture> f;
};

QAccessibleInterface* LisemAccessibleTest::list()
{
    return QAccessible::queryAccessibleInterface(&f->busi());
}

void LisemAccessibleTest::hundredThousandRowsCanBeWalked()
{
    f->givenZones(zones(kManyRows));
    f->open(kZones);
    QAccessibleTableInterface* table = list()->tableInterface();
    QCOMPARE(table->rowCount(), kManyRows);

    int named = 0;
    for (int row = 0; row < kManyRows; ++row) {
        const QAccessibleInterface* cell = table->cellAt(row, 1);
        named += cell && cell->isValid() && !cell->text(QAccessible::Name).isEmpty() ? 1 : 0;
    }

    QCOMPARE(named, kManyRows);
}

void LisemAccessibleTest::cellBearsItsColumnAndText()
{
    f->givenZones({{u"0000000001"_s, u"Costa"_s}});
    f->open(kZones);

    const QAccessibleInterface* cell = list()->tableInterface()->cellAt(0, 1);

    QCOMPARE(cell->role(), QAccessible::Cell);
    QCOMPARE(cell->text(QAccessible::Name), u"Zonas: Costa"_s);
}

void LisemAccessibleTest::emptyListHasNoCells()
{
    f->givenTypes({});
    f->open(kTypes);

    QAccessibleTableInterface* table = list()->tableInterface();

    QCOMPARE(table->rowCount(), 0);
    QVERIFY(table->cellAt(0, 0) == nullptr);
    QCOMPARE(table->selectedCellCount(), 0);
}

void LisemAccessibleTest::cellOfAListThatWasReplacedIsInvalid()
{
    f->givenZones(zones(50));
    f->open(kZones);
    const QAccessible::Id cell = QAccessible::uniqueId(list()->tableInterface()->cellAt(40, 1));

    f->search(u"no hay ninguna"_s);

    QCOMPARE(f->busi().rows(), 1);
    const QAccessibleInterface* left = QAccessible::accessibleInterface(cell);
    QVERIFY(!left || !left->isValid());
    QCOMPARE(list()->tableInterface()->rowCount(), 0);
}

void LisemAccessibleTest::listClosedWhileItIsReadIsGone()
{
    f->givenZones(zones(50));
    f->open(kZones);
    const QAccessible::Id table = QAccessible::uniqueId(list());
    const QAccessible::Id cell = QAccessible::uniqueId(list()->tableInterface()->cellAt(40, 1));

    f->press(f->box(), Qt::Key_Escape);
    f.reset();

    for (const QAccessible::Id id : {table, cell}) {
        const QAccessibleInterface* left = QAccessible::accessibleInterface(id);
        QVERIFY(!left || !left->isValid());
    }
}

void LisemAccessibleTest::tickSaysWhatItDoesToTheList_data()
{
    QTest::addColumn<double>("kind");
    QTest::addColumn<QString>("name");

    QTest::newRow("clients") << 20.0 << u"Ordenar por número"_s;
    QTest::newRow("articles, without a label beside it") << 11.0 << u"Volver a cargar la lista"_s;
}

void LisemAccessibleTest::tickSaysWhatItDoesToTheList()
{
    QFETCH(const double, kind);
    QFETCH(const QString, name);

    f->open(kind);

    QAccessibleInterface* tick = QAccessible::queryAccessibleInterface(&f->control<QCheckBox>("Check1"));
    QTRY_COMPARE(tick->text(QAccessible::Name), name);
}

QTEST_MAIN(LisemAccessibleTest)
#include "tst_lisemaccessible.moc"
