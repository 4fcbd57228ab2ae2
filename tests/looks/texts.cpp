// SPDX-License-Identifier: GPL-3.0-or-later
#include "looks/texts.h"

#include "looks/shown.h"
#include "platform/window/flexgrid.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOption>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace looks {

namespace {

/// The longest code; a field that takes more holds a text, which may scroll.
constexpr int kLongestCode = 15;
/// What a line of text keeps free at either side of itself.
constexpr int kLineMargin = 2;
constexpr int kCombosOwnMargin = 1;

class TabSizes final : public QTabBar
{
public:
    static QSize wanted(const QTabBar& bar, int tab) { return (bar.*&TabSizes::tabSizeHint)(tab); }
};

class Options final : public QWidget
{
public:
    static QStyleOptionComboBox of(const QComboBox& combo)
    {
        struct Access : QComboBox
        {
            static void fill(const QComboBox& box, QStyleOptionComboBox* option)
            {
                (box.*&Access::initStyleOption)(option);
            }
        };
        QStyleOptionComboBox option;
        Access::fill(combo, &option);
        return option;
    }
};

class Report
{
public:
    explicit Report(const QWidget& control)
        : m_name(nameOf(control))
    {}

    void needs(const QString& what, int wanted, int has, const QString& side)
    {
        if (wanted > has)
            m_faults +=
                u"%1: %2 needs %3 px of %4, has %5"_s.arg(m_name, what).arg(wanted).arg(side).arg(has);
    }
    void needs(const QString& what, QSize wanted, QSize has)
    {
        needs(what, wanted.width(), has.width(), u"width"_s);
        needs(what, wanted.height(), has.height(), u"height"_s);
    }
    void tells(const QString& fault) { m_faults += m_name + u": "_s + fault; }
    [[nodiscard]] QStringList faults() const { return m_faults; }

private:
    QString m_name;
    QStringList m_faults;
};

QSize sizeOf(const QWidget& control, const QString& text)
{
    return control.fontMetrics().size(Qt::TextShowMnemonic, text);
}

void look(const QLabel& label, Report& report)
{
    if (label.text().isEmpty())
        return;
    if (label.wordWrap()) {
        report.needs(u"the text"_s, label.heightForWidth(label.width()), label.height(), u"height"_s);
        report.needs(u"the longest word"_s, label.minimumSizeHint().width(), label.width(), u"width"_s);
    } else {
        report.needs(u"the text"_s, label.sizeHint(), label.size());
    }
}

void look(const QPushButton& button, Report& report)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    const QRect room = button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
    report.needs(u"the text"_s, sizeOf(button, button.text()), room.size());
}

void look(const QTabBar& bar, Report& report)
{
    for (int tab = 0; tab < bar.count(); ++tab) {
        report.needs(u"the tab "_s + bar.tabText(tab), TabSizes::wanted(bar, tab), bar.tabRect(tab).size());
        if (!bar.rect().contains(bar.tabRect(tab)))
            report.tells(u"the tab %1 is out of view"_s.arg(bar.tabText(tab)));
    }
}

void look(const QGroupBox& box, Report& report)
{
    report.needs(u"the title"_s, sizeOf(box, box.title()).width(), box.width() - 2 * kLineMargin, u"width"_s);
}

void look(const QHeaderView& header, Report& report)
{
    if (header.orientation() != Qt::Horizontal)
        return;
    const auto* grid = qobject_cast<const platform::FlexGrid*>(header.parentWidget());
    const int margin = 2 * header.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &header);
    for (int section = 0; section < header.count(); ++section) {
        // A column too narrow to read carries its value unseen, and has no heading to read.
        if (header.isSectionHidden(section) || (grid && !grid->column(section).isReadable()))
            continue;
        const QString text = header.model()->headerData(section, Qt::Horizontal).toString();
        report.needs(u"the heading "_s + text, sizeOf(header, text).width() + margin,
                     header.sectionSize(section), u"width"_s);
    }
    report.needs(u"a heading"_s, header.fontMetrics().height(), header.height(), u"height"_s);
}

void look(const QComboBox& combo, bool isOfData, Report& report)
{
    const QStyleOptionComboBox option = Options::of(combo);
    const QRect room =
        combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo);
    if (!isOfData)
        report.needs(u"the entry"_s, sizeOf(combo, combo.currentText()).width() + 2 * kCombosOwnMargin,
                     room.width(), u"width"_s);
    report.needs(u"the entry"_s, combo.fontMetrics().height(), room.height(), u"height"_s);
}

void look(const QLineEdit& line, Report& report)
{
    QStyleOptionFrame option;
    option.initFrom(&line);
    option.lineWidth = line.hasFrame() ? line.style()->pixelMetric(QStyle::PM_DefaultFrameWidth) : 0;
    QRect room = line.style()->subElementRect(QStyle::SE_LineEditContents, &option, &line);
    room = room.marginsRemoved(line.textMargins()).adjusted(kLineMargin, 0, -kLineMargin, 0);
    report.needs(u"a line"_s, line.fontMetrics().height(), room.height(), u"height"_s);
    if (line.text().isEmpty())
        report.needs(u"the hint"_s, line.fontMetrics().horizontalAdvance(line.placeholderText()),
                     room.width(), u"width"_s);
    if (line.maxLength() <= kLongestCode)
        report.needs(u"a code"_s,
                     line.fontMetrics().horizontalAdvance(QString(line.maxLength(), QLatin1Char('0'))),
                     room.width(), u"width"_s);
    if (qobject_cast<QAbstractSpinBox*>(line.parentWidget()))
        report.needs(u"the value"_s, line.fontMetrics().horizontalAdvance(line.text()), room.width(),
                     u"width"_s);
}

void look(const QMenuBar& bar, Report& report)
{
    for (QAction* action : bar.actions()) {
        const QRect place = bar.actionGeometry(action);
        report.needs(u"the menu "_s + action->text(), sizeOf(bar, action->text()), place.size());
        if (!bar.rect().contains(place))
            report.tells(u"the menu %1 is out of view"_s.arg(action->text()));
    }
}

void look(const QMenu& menu, Report& report)
{
    for (QAction* action : menu.actions()) {
        if (action->isSeparator())
            continue;
        const QRect place = menu.actionGeometry(action);
        const int icon = action->icon().isNull() ? 0 : menu.style()->pixelMetric(QStyle::PM_SmallIconSize);
        report.needs(u"the item "_s + action->text(), sizeOf(menu, action->text()) + QSize(icon, 0),
                     place.size());
        if (!menu.rect().contains(place))
            report.tells(u"the item %1 is out of view"_s.arg(action->text()));
    }
}

void look(const QToolButton& button, Report& report)
{
    if (button.toolButtonStyle() != Qt::ToolButtonIconOnly && !button.text().isEmpty())
        report.needs(u"the text"_s, button.sizeHint(), button.size());
}

void lookAt(const QWidget& control, const QStringList& dataLists, Report& report)
{
    if (const auto* label = qobject_cast<const QLabel*>(&control))
        look(*label, report);
    else if (const auto* button = qobject_cast<const QPushButton*>(&control))
        look(*button, report);
    else if (qobject_cast<const QCheckBox*>(&control) || qobject_cast<const QRadioButton*>(&control))
        report.needs(u"box and text"_s, control.sizeHint(), control.size());
    else if (const auto* tool = qobject_cast<const QToolButton*>(&control))
        look(*tool, report);
    else if (const auto* bar = qobject_cast<const QTabBar*>(&control))
        look(*bar, report);
    else if (const auto* box = qobject_cast<const QGroupBox*>(&control))
        look(*box, report);
    else if (const auto* header = qobject_cast<const QHeaderView*>(&control))
        look(*header, report);
    else if (const auto* combo = qobject_cast<const QComboBox*>(&control))
        look(*combo, dataLists.contains(combo->objectName()), report);
    else if (const auto* line = qobject_cast<const QLineEdit*>(&control))
        look(*line, report);
    else if (const auto* menuBar = qobject_cast<const QMenuBar*>(&control))
        look(*menuBar, report);
    else if (const auto* menu = qobject_cast<const QMenu*>(&control))
        look(*menu, report);
}

} // namespace

bool hidesTools(const QWidget& window)
{
    const QList<QWidget*> more = window.findChildren<QWidget*>(u"qt_toolbar_ext_button"_s);
    return std::any_of(more.begin(), more.end(), [](const QWidget* button) { return button->isVisible(); });
}

QStringList cutTexts(QWidget& window, const QStringList& dataLists)
{
    QStringList faults;
    for (const QWidget* control : shownIn(window)) {
        Report report(*control);
        lookAt(*control, dataLists, report);
        faults += report.faults();
    }
    return faults;
}

} // namespace looks
