// SPDX-License-Identifier: GPL-3.0-or-later

// The checks find what they are there for: each one meets a bad little window, and the same one put right.

#include "looks/ink.h"
#include "looks/painted.h"
#include "looks/places.h"
#include "looks/setting.h"
#include "looks/shown.h"
#include "looks/texts.h"
#include "platform/window/colours.h"
#include "platform/window/flexgrid.h"
#include "platform/window/textbox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTabBar>
#include <QVBoxLayout>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QSize kRoom(400, 300);

/// A window that holds one control at a place of its own.
class Little
{
public:
    explicit Little(QWidget* control, QSize size)
    {
        window.resize(kRoom);
        control->setParent(&window);
        control->setGeometry(QRect(QPoint(20, 20), size));
        window.show();
    }
    QWidget window;
};

/// Draws no focus.
class Unmarked final : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), Qt::white); }
};

using Make = QWidget* (*)(const QString&);

template <typename Control>
QWidget* with(const QString& text)
{
    return new Control(text);
}

} // namespace

class LookChecksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cutTextIsFound_data();
    void cutTextIsFound();
    void wrappedTextWithoutHeightIsFound();
    void cutTabIsFound();
    void cutHeadingIsFound();
    void headingOfAColumnNotToBeReadIsLeftOut();
    void fieldTooNarrowForItsCodeIsFound();
    void entryOfDataMayBeCut();
    void overlapIsFound();
    void controlBeyondItsParentIsFound();
    void windowLargerThanItsRoomIsFound();
    void faintTextIsFound();
    void textOfTheColourOfItsGroundIsFound();
    void inkIsToldFromItsHardestGround();
    void controlWithoutAMarkOfTheFocusIsFound();
};

void LookChecksTest::cutTextIsFound_data()
{
    QTest::addColumn<Make>("make");
    const QList<std::pair<const char*, Make>> makes{{"label", &with<QLabel>},
                                                    {"button", &with<QPushButton>},
                                                    {"check box", &with<QCheckBox>},
                                                    {"group", &with<QGroupBox>}};
    for (const auto& [name, make] : makes)
        QTest::newRow(name) << make;
}

void LookChecksTest::cutTextIsFound()
{
    QFETCH(const Make, make);
    QWidget* control = make(u"Impresora predeterminada"_s);
    Little little(control, {60, 24});

    QVERIFY(!looks::cutTexts(little.window).isEmpty());

    control->resize(320, 40);
    QCOMPARE(looks::cutTexts(little.window), QStringList());
}

void LookChecksTest::wrappedTextWithoutHeightIsFound()
{
    auto* label = new QLabel(u"Haga doble click sobre la impresora que desee activar"_s);
    label->setWordWrap(true);
    Little little(label, {150, 20});

    QVERIFY(!looks::cutTexts(little.window).isEmpty());

    label->resize(150, 100);
    QCOMPARE(looks::cutTexts(little.window), QStringList());
}

void LookChecksTest::cutTabIsFound()
{
    auto* bar = new QTabBar;
    bar->addTab(u"Identificacion"_s);
    bar->addTab(u"Conceptos Períodicos"_s);
    Little little(bar, {120, 30});

    QVERIFY(!looks::cutTexts(little.window).isEmpty());

    bar->resize(360, 30);
    QCOMPARE(looks::cutTexts(little.window), QStringList());
}

void LookChecksTest::cutHeadingIsFound()
{
    auto* grid = new platform::FlexGrid;
    grid->setHeading(0, u"Causa de la baja"_s);
    Little little(grid, {300, 200});
    grid->setColumnWidth(0, 30);

    QVERIFY(!looks::cutTexts(little.window).isEmpty());

    grid->setColumnWidth(0, 160);
    QCOMPARE(looks::cutTexts(little.window), QStringList());
}

void LookChecksTest::headingOfAColumnNotToBeReadIsLeftOut()
{
    auto* grid = new platform::FlexGrid;
    grid->setHeading(0, u"Publicable"_s);
    grid->setColWidth(0, platform::kLeastReadableTwips - 1);
    Little little(grid, {300, 200});

    QCOMPARE(looks::cutTexts(little.window), QStringList());
}

void LookChecksTest::fieldTooNarrowForItsCodeIsFound()
{
    auto* box = new platform::TextBox;
    box->setMaxLength(10);
    Little little(box, {50, 24});

    QVERIFY(!looks::cutTexts(little.window).isEmpty());

    box->resize(box->minimumSizeHint());
    QCOMPARE(looks::cutTexts(little.window), QStringList());
}

void LookChecksTest::entryOfDataMayBeCut()
{
    auto* combo = new QComboBox;
    combo->setObjectName(u"datos"_s);
    combo->addItem(u"Mantenimiento de sala de calderas"_s);
    Little little(combo, {80, 24});

    QVERIFY(!looks::cutTexts(little.window).isEmpty());
    QCOMPARE(looks::cutTexts(little.window, {u"datos"_s}), QStringList());
}

void LookChecksTest::overlapIsFound()
{
    auto* first = new QLabel(u"uno"_s);
    auto* second = new QLabel(u"dos"_s);
    Little little(first, {80, 20});
    second->setParent(&little.window);
    second->setGeometry(90, 30, 80, 20);
    second->show();

    QCOMPARE(looks::misplaced(little.window, kRoom).size(), 1);

    second->move(100, 20);
    QCOMPARE(looks::misplaced(little.window, kRoom), QStringList());
}

void LookChecksTest::controlBeyondItsParentIsFound()
{
    auto* label = new QLabel(u"uno"_s);
    Little little(label, {80, 20});
    label->move(kRoom.width() - 79, 20);

    QCOMPARE(looks::misplaced(little.window, kRoom).size(), 1);

    label->move(kRoom.width() - 80, 20);
    QCOMPARE(looks::misplaced(little.window, kRoom), QStringList());
}

void LookChecksTest::windowLargerThanItsRoomIsFound()
{
    Little little(new QLabel(u"uno"_s), {80, 20});

    QCOMPARE(looks::misplaced(little.window, kRoom - QSize(0, 1)).size(), 1);
}

void LookChecksTest::faintTextIsFound()
{
    auto* label = new QLabel(u"apenas se lee"_s);
    QPalette palette = label->palette();
    const QColor ground = palette.color(QPalette::Window);
    palette.setColor(QPalette::WindowText, platform::quiet(Qt::gray, {ground}, 2));
    label->setPalette(palette);
    Little little(label, {200, 24});

    QCOMPARE(looks::unreadable(little.window).size(), 1);

    label->setPalette({});
    QCOMPARE(looks::unreadable(little.window), QStringList());
}

void LookChecksTest::textOfTheColourOfItsGroundIsFound()
{
    auto* label = new QLabel(u"no se ve"_s);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, palette.color(QPalette::Window));
    label->setPalette(palette);
    Little little(label, {200, 24});

    QCOMPARE(looks::unreadable(little.window).size(), 1);
}

void LookChecksTest::inkIsToldFromItsHardestGround()
{
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.fillRect(0, 0, 10, 20, QColor(120, 120, 120));
    painter.fillRect(2, 10, 36, 1, Qt::black);
    painter.end();

    const std::optional<looks::Ink> ink = looks::inkOf(picture);

    QVERIFY(ink);
    QCOMPARE(ink->ink, QColor(Qt::black));
    QCOMPARE(ink->ground, QColor(120, 120, 120));
    QVERIFY(ink->contrast < 6);
}

void LookChecksTest::controlWithoutAMarkOfTheFocusIsFound()
{
    auto* control = new Unmarked;
    control->setFocusPolicy(Qt::StrongFocus);
    Little little(control, {100, 40});
    QVERIFY(QTest::qWaitForWindowActive(&little.window));
    QCOMPARE(looks::unmarkedFocus(little.window).size(), 1);

    Little marked(new QPushButton(u"Salir"_s), {100, 24});
    marked.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&marked.window));
    QCOMPARE(looks::unmarkedFocus(marked.window), QStringList());
}

ORVANE_LOOKS_MAIN(LookChecksTest)
#include "tst_lookchecks.moc"
