// SPDX-License-Identifier: GPL-3.0-or-later

// The grid as code sees it: addressing, text, shape, binding.

#include "platform/core/failurenumbers.h"
#include "platform/window/flexgrid.h"
#include "support/failureof.h"

#include <QAccessible>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using platform::FlexGrid;
using support::failureOf;

namespace {

/// An array that knows how often it was read.
class CountingArray : public platform::CellArray
{
public:
    CountingArray(int columns, int rows)
        : m_columns(columns)
        , m_rows(rows)
    {}

    [[nodiscard]] int columns() const override { return m_columns; }
    [[nodiscard]] int rows() const override { return m_rows; }
    [[nodiscard]] QString text(int column, int row) const override
    {
        ++reads;
        return column == 0 && row == 0 && !written.isEmpty() ? written : u"%1/%2"_s.arg(column).arg(row);
    }
    void setText(int, int, const QString& text) override { written = text; }

    mutable int reads = 0;
    QString written;

private:
    int m_columns;
    int m_rows;
};

} // namespace

class FlexGridTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void firstCurrentCellIsRow1Col0();
    void rowOutsideFailsAndStays_data();
    void rowOutsideFailsAndStays();
    void colOutsideFailsAndStays_data();
    void colOutsideFailsAndStays();
    void headingRowIsAllowedFromCode();
    void textOnRow0IsTheHeading();
    void rowCountsTheHeading();
    void fewerRowsThanOneFail();
    void oneRowEmptiesTheGrid();
    void rowFollowsWhenRowsGo();
    void textOfRowsThatStayIsKept();
    void nullTextFailsWith94AndTheCellStays();
    void numberIsWrittenInPlainForm();
    void textIsTheRawValueUnderAFormat();
    void settingTextRaisesNoEditEvents();
    void cellAddressOutsideFails();
    void rangeTextEmptiesAllLinesAndUnticks();
    void rangeTextLeavesHeadingsAndCursor();
    void tickIsTheTextOfTheCell();
    void emptyTextIsUnticked();
    void valueOutsideTheListStaysAndShows();
    void zeroWidthHidesTheColumn();
    void widthsComeBackAsGiven();
    void tickColumnIsAsWideAsItsHeading();
    void barelyShownColumnShowsNoScraps();
    void lastColumnAsItComesTakesTheRest();
    void filledGridSharesItsWidth();
    void boundGridShowsRecordRInRowRPlus1();
    void bindingKeepsHeadings();
    void bindingPutsRowOn1AfterAnEmptyGrid();
    void bindingAnEmptyArrayLeavesTheHeading();
    void unbindingLeavesTheHeading();
    void writingABoundCellGoesToTheArray();
    void clearLeavesTheArrayUntouched();
    void largeArrayIsReadOnDemand();
    void settingTheRowDoesNotScroll();
    void topRowScrollsToTheRow();
    void topRowOutsideFails();
    void redrawIsAFlag();
    void headingsCannotBeClicked();
    void cellsAreNamedWithTheirHeading();
    void hundredThousandRowsAreSafeForAccessibility();

private:
    std::unique_ptr<FlexGrid> grid;
};

void FlexGridTest::init()
{
    grid = std::make_unique<FlexGrid>();
    grid->setRows(15);
    grid->setCols(6);
}

void FlexGridTest::firstCurrentCellIsRow1Col0()
{
    QCOMPARE(grid->row(), 1);
    QCOMPARE(grid->col(), 0);
}

void FlexGridTest::rowOutsideFailsAndStays_data()
{
    QTest::addColumn<int>("row");

    QTest::newRow("below 0") << -1;
    QTest::newRow("the count itself") << 15;
    QTest::newRow("far past the end") << 1000;
}

void FlexGridTest::rowOutsideFailsAndStays()
{
    QFETCH(int, row);
    grid->setRow(14);

    QCOMPARE(failureOf([&] { grid->setRow(row); }), platform::kInvalidPropertyIndex);
    QCOMPARE(grid->row(), 14);
}

void FlexGridTest::colOutsideFailsAndStays_data()
{
    QTest::addColumn<int>("col");

    QTest::newRow("below 0") << -1;
    QTest::newRow("the count itself") << 6;
}

void FlexGridTest::colOutsideFailsAndStays()
{
    QFETCH(int, col);
    grid->setCol(3);

    QCOMPARE(failureOf([&] { grid->setCol(col); }), platform::kInvalidPropertyIndex);
    QCOMPARE(grid->col(), 3);
}

void FlexGridTest::headingRowIsAllowedFromCode()
{
    grid->setRow(0);

    QCOMPARE(grid->row(), 0);
}

void FlexGridTest::textOnRow0IsTheHeading()
{
    grid->setRow(0);
    grid->setCol(2);

    grid->setText(u"Localidad"_s);

    QCOMPARE(grid->heading(2), u"Localidad"_s);
    QCOMPARE(grid->model()->headerData(2, Qt::Horizontal).toString(), u"Localidad"_s);
}

void FlexGridTest::rowCountsTheHeading()
{
    QCOMPARE(grid->rows(), 15);
    QCOMPARE(grid->model()->rowCount(), 14);
}

void FlexGridTest::fewerRowsThanOneFail()
{
    QCOMPARE(failureOf([&] { grid->setRows(0); }), platform::kInvalidPropertyValue);
    QCOMPARE(grid->rows(), 15);
}

void FlexGridTest::oneRowEmptiesTheGrid()
{
    grid->setTextMatrix(1, 0, u"x"_s);

    grid->setRows(1);
    grid->setRows(15);

    QCOMPARE(grid->textMatrix(1, 0), QString());
}

void FlexGridTest::rowFollowsWhenRowsGo()
{
    grid->setRow(14);

    grid->setRows(1);

    QCOMPARE(grid->row(), 0);
}

void FlexGridTest::textOfRowsThatStayIsKept()
{
    grid->setTextMatrix(2, 1, u"queda"_s);

    grid->setRows(3);

    QCOMPARE(grid->textMatrix(2, 1), u"queda"_s);
}

void FlexGridTest::nullTextFailsWith94AndTheCellStays()
{
    grid->setText(u"antes"_s);

    QCOMPARE(failureOf([&] { grid->setText(platform::Value(platform::Null{})); }),
             platform::kInvalidUseOfNull);
    QCOMPARE(grid->text(), u"antes"_s);
}

void FlexGridTest::numberIsWrittenInPlainForm()
{
    grid->setText(platform::Value(1234.5));

    QCOMPARE(grid->text(), u"1234,5"_s);
}

void FlexGridTest::textIsTheRawValueUnderAFormat()
{
    grid->setColFormat(0, u"##,##.00"_s);

    grid->setText(u"1234,5"_s);

    QCOMPARE(grid->text(), u"1234,5"_s);
    QCOMPARE(grid->model()->index(0, 0).data().toString(), u"1.234,50"_s);
}

void FlexGridTest::settingTextRaisesNoEditEvents()
{
    const QSignalSpy started(grid.get(), &FlexGrid::StartEdit);
    const QSignalSpy ended(grid.get(), &FlexGrid::AfterEdit);

    grid->setText(u"x"_s);
    grid->setTicked(true);

    QCOMPARE(started.size() + ended.size(), 0);
}

void FlexGridTest::cellAddressOutsideFails()
{
    QCOMPARE(failureOf([&] { return grid->textMatrix(15, 0); }), platform::kInvalidPropertyIndex);
    QCOMPARE(failureOf([&] { return grid->textMatrix(0, 6); }), platform::kInvalidPropertyIndex);
}

void FlexGridTest::rangeTextEmptiesAllLinesAndUnticks()
{
    grid->setColKind(5, platform::CellKind::Boolean);
    grid->setTextMatrix(14, 0, u"x"_s);
    grid->setTextMatrix(3, 5, u"1"_s);

    grid->setRangeText({});

    QCOMPARE(grid->textMatrix(14, 0), QString());
    QVERIFY(!grid->isTickedAt(3, 5));
}

void FlexGridTest::rangeTextLeavesHeadingsAndCursor()
{
    grid->setHeading(0, u"Banco"_s);
    grid->setRow(4);

    grid->setRangeText({});

    QCOMPARE(grid->heading(0), u"Banco"_s);
    QCOMPARE(grid->row(), 4);
}

void FlexGridTest::tickIsTheTextOfTheCell()
{
    grid->setTicked(true);
    QCOMPARE(grid->text(), u"1"_s);

    grid->setTicked(false);
    QCOMPARE(grid->text(), u"0"_s);
}

void FlexGridTest::emptyTextIsUnticked()
{
    grid->setText(QString());

    QVERIFY(!grid->isTicked());
}

void FlexGridTest::valueOutsideTheListStaysAndShows()
{
    grid->setColList(0, u"01 Si|02 No"_s);

    grid->setText(u"01 No"_s);

    QCOMPARE(grid->text(), u"01 No"_s);
    QCOMPARE(grid->model()->index(0, 0).data().toString(), u"01 No"_s);
}

void FlexGridTest::zeroWidthHidesTheColumn()
{
    grid->setColWidth(0, 0);
    QVERIFY(grid->isColumnHidden(0));

    grid->setColWidth(0, 1000);
    QVERIFY(!grid->isColumnHidden(0));
}

void FlexGridTest::widthsComeBackAsGiven()
{
    grid->setColWidth(1, 2175);

    QCOMPARE(grid->colWidth(1), 2175);
    QVERIFY(grid->columnWidth(1) >= 2175 / 15 * grid->logicalDpiX() / 96);
}

void FlexGridTest::tickColumnIsAsWideAsItsHeading()
{
    grid->setHeading(5, u"Pred."_s);
    grid->setColKind(5, platform::CellKind::Boolean);
    grid->setColWidth(5, 100);

    QVERIFY(grid->columnWidth(5) > grid->fontMetrics().horizontalAdvance(u"Pred."_s));
}

void FlexGridTest::barelyShownColumnShowsNoScraps()
{
    grid->setHeading(0, u"Publicable"_s);
    grid->setText(u"01 No"_s);

    grid->setColWidth(0, 100);

    QCOMPARE(grid->model()->index(0, 0).data().toString(), QString());
    QCOMPARE(grid->text(), u"01 No"_s);
    QCOMPARE(grid->heading(0), u"Publicable"_s);
}

void FlexGridTest::lastColumnAsItComesTakesTheRest()
{
    grid->setColWidth(5, -1);

    QVERIFY(grid->horizontalHeader()->stretchLastSection());
}

void FlexGridTest::filledGridSharesItsWidth()
{
    grid->setFillsWidth(true);
    for (int col = 0; col < 6; ++col)
        grid->setColWidth(col, 300);
    grid->resize(900, 300);
    grid->show();
    QVERIFY(QTest::qWaitForWindowExposed(grid.get()));

    QVERIFY(grid->columnWidth(0) > 120);
    QVERIFY(!grid->horizontalHeader()->stretchLastSection());
}

void FlexGridTest::boundGridShowsRecordRInRowRPlus1()
{
    grid->bindToArray(std::make_shared<CountingArray>(3, 10));

    QCOMPARE(grid->rows(), 11);
    QCOMPARE(grid->cols(), 3);
    QCOMPARE(grid->textMatrix(8, 2), u"2/7"_s);
}

void FlexGridTest::bindingKeepsHeadings()
{
    grid->setHeading(1, u"Cliente"_s);

    grid->bindToArray(std::make_shared<CountingArray>(3, 10));

    QCOMPARE(grid->heading(1), u"Cliente"_s);
}

void FlexGridTest::bindingPutsRowOn1AfterAnEmptyGrid()
{
    grid->setRows(1);
    QCOMPARE(grid->row(), 0);

    grid->bindToArray(std::make_shared<CountingArray>(3, 1));

    QCOMPARE(grid->row(), 1);
}

void FlexGridTest::bindingAnEmptyArrayLeavesTheHeading()
{
    grid->bindToArray(std::make_shared<CountingArray>(3, 0));

    QCOMPARE(grid->rows(), 1);
    QCOMPARE(grid->row(), 0);
}

void FlexGridTest::unbindingLeavesTheHeading()
{
    grid->bindToArray(std::make_shared<CountingArray>(3, 10));

    grid->bindToArray(nullptr);

    QVERIFY(!grid->isBound());
    QCOMPARE(grid->rows(), 1);
}

void FlexGridTest::writingABoundCellGoesToTheArray()
{
    const auto array = std::make_shared<CountingArray>(3, 10);
    grid->bindToArray(array);
    grid->setRow(1);
    grid->setCol(0);

    grid->setText(u"1"_s);

    QCOMPARE(array->written, u"1"_s);
    QCOMPARE(grid->text(), u"1"_s);
}

void FlexGridTest::clearLeavesTheArrayUntouched()
{
    const auto array = std::make_shared<CountingArray>(3, 10);
    grid->bindToArray(array);
    grid->setHeading(0, u"Codigo"_s);

    grid->clear();

    QCOMPARE(array->written, QString());
    QCOMPARE(grid->heading(0), QString());
    QVERIFY(!grid->isBound());
}

void FlexGridTest::largeArrayIsReadOnDemand()
{
    const auto array = std::make_shared<CountingArray>(5, 100000);
    grid->resize(600, 400);
    grid->show();
    QVERIFY(QTest::qWaitForWindowExposed(grid.get()));

    grid->bindToArray(array);
    grid->setTopRow(99000);
    grid->setRow(99000);
    grid->grab();

    QVERIFY(array->reads > 0);
    QVERIFY2(array->reads < 5000, qPrintable(QString::number(array->reads)));
}

void FlexGridTest::settingTheRowDoesNotScroll()
{
    grid->setRows(200);
    grid->resize(600, 300);
    grid->show();
    QVERIFY(QTest::qWaitForWindowExposed(grid.get()));

    grid->setRow(199);

    QCOMPARE(grid->topRow(), 1);
}

void FlexGridTest::topRowScrollsToTheRow()
{
    grid->setRows(200);
    grid->resize(600, 300);
    grid->show();
    QVERIFY(QTest::qWaitForWindowExposed(grid.get()));

    grid->setTopRow(50);
    QCOMPARE(grid->topRow(), 50);

    grid->setTopRow(1);
    QCOMPARE(grid->topRow(), 1);
}

void FlexGridTest::topRowOutsideFails()
{
    QCOMPARE(failureOf([&] { grid->setTopRow(15); }), platform::kInvalidPropertyIndex);
    QCOMPARE(failureOf([&] { grid->setTopRow(0); }), platform::kInvalidPropertyIndex);
}

void FlexGridTest::redrawIsAFlag()
{
    grid->setRedraw(false);
    grid->setRedraw(false);
    QVERIFY(!grid->updatesEnabled());

    grid->setRedraw(true);
    QVERIFY(grid->updatesEnabled());
}

void FlexGridTest::headingsCannotBeClicked()
{
    QVERIFY(!grid->horizontalHeader()->sectionsClickable());
    QVERIFY(!grid->isSortingEnabled());
}

void FlexGridTest::cellsAreNamedWithTheirHeading()
{
    grid->setHeading(0, u"Telefono"_s);
    grid->setText(u"968123456"_s);

    QCOMPARE(grid->model()->index(0, 0).data(Qt::AccessibleTextRole).toString(), u"Telefono: 968123456"_s);
}

void FlexGridTest::hundredThousandRowsAreSafeForAccessibility()
{
    const auto array = std::make_shared<CountingArray>(5, 100000);
    grid->show();
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(grid.get());

    grid->bindToArray(array);
    grid->setRow(100000);

    QVERIFY(accessible->tableInterface());
    QCOMPARE(accessible->tableInterface()->rowCount(), 100000);
    QVERIFY2(array->reads < 5000, qPrintable(QString::number(array->reads)));
}

QTEST_MAIN(FlexGridTest)
#include "tst_flexgrid.moc"
