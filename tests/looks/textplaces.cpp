// SPDX-License-Identifier: GPL-3.0-or-later
#include "looks/textplaces.h"

#include "looks/shown.h"
#include "platform/window/flexgrid.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyleOption>
#include <QTabBar>
#include <QTextBlock>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace looks {

namespace {

/// Frames and grid lines are no wider than this.
constexpr int kFrame = 3;
/// Between a picture and its text.
constexpr int kPictureGap = 4;

class Places
{
public:
    explicit Places(QWidget& window)
        : m_window(window)
    {}

    /// A text of a control, in the control's own coordinates.
    void add(const QWidget& control, const QString& what, const QRect& place)
    {
        // Only what is in view, and far enough from the edge of what scrolls it.
        const QRect seen = place.intersected(control.visibleRegion().boundingRect());
        if (seen.width() > 2 * kFrame && seen.height() >= control.fontMetrics().ascent())
            m_places.append({nameOf(control) + what, seen.translated(control.mapTo(&m_window, QPoint()))});
    }
    [[nodiscard]] QList<TextPlace> places() const { return m_places; }

private:
    QWidget& m_window;
    QList<TextPlace> m_places;
};

QRect inside(const QRect& rect)
{
    return rect.adjusted(kFrame, kFrame, -kFrame, -kFrame);
}

void tell(const QLabel& label, Places& places)
{
    if (!label.text().isEmpty())
        places.add(label, {}, inside(label.contentsRect()));
}

void tell(const QAbstractButton& button, Places& places)
{
    if (button.text().isEmpty())
        return;
    QRect place = inside(button.rect());
    if (!button.icon().isNull())
        place.setLeft(button.iconSize().width() + kPictureGap + kFrame);
    if (qobject_cast<const QCheckBox*>(&button))
        place.setLeft(button.style()->pixelMetric(QStyle::PM_IndicatorWidth) + kPictureGap);
    const auto* tool = qobject_cast<const QToolButton*>(&button);
    if (!tool || tool->toolButtonStyle() != Qt::ToolButtonIconOnly)
        places.add(button, {}, place.adjusted(kFrame, kFrame, -kFrame, -kFrame));
}

void tell(const QTabBar& bar, Places& places)
{
    for (int tab = 0; tab < bar.count(); ++tab)
        places.add(bar, bar.tabText(tab),
                   inside(bar.tabRect(tab)).adjusted(kFrame, kFrame, -kFrame, -kFrame));
}

void tell(const QGroupBox& box, Places& places)
{
    const int height = box.fontMetrics().height();
    const int width = box.fontMetrics().horizontalAdvance(box.title());
    places.add(box, {}, QRect(0, 0, width + height, height));
}

void tell(const QHeaderView& header, Places& places)
{
    if (header.orientation() != Qt::Horizontal)
        return;
    const auto* grid = qobject_cast<const platform::FlexGrid*>(header.parentWidget());
    for (int section = 0; section < header.count(); ++section) {
        const QString text = header.model()->headerData(section, Qt::Horizontal).toString();
        if (text.isEmpty() || header.isSectionHidden(section) ||
            (grid && !grid->column(section).isReadable()))
            continue;
        places.add(*header.viewport(), u" heading "_s + text,
                   inside({header.sectionViewportPosition(section), 0, header.sectionSize(section),
                           header.height()}));
    }
}

QRect withoutPicture(const QAbstractItemView& view, const QModelIndex& index)
{
    QRect place = view.visualRect(index);
    if (index.data(Qt::DecorationRole).isValid())
        place.setLeft(place.left() + view.iconSize().expandedTo({16, 16}).width() + kPictureGap);
    return inside(place);
}

void tellItems(const QAbstractItemView& view, const QModelIndex& parent, Places& places)
{
    const auto* grid = qobject_cast<const platform::FlexGrid*>(&view);
    const QAbstractItemModel& model = *view.model();
    const QRect seen = view.viewport()->rect();
    for (int row = 0; row < model.rowCount(parent); ++row) {
        for (int column = 0; column < model.columnCount(parent); ++column) {
            const QModelIndex index = model.index(row, column, parent);
            if (!seen.intersects(view.visualRect(index)))
                continue;
            const bool readable = !grid || grid->column(column).isReadable();
            if (readable && !index.data().toString().isEmpty())
                places.add(*view.viewport(), u" row %1 «%2»"_s.arg(row).arg(index.data().toString().left(20)),
                           withoutPicture(view, index));
            tellItems(view, index, places);
        }
    }
}

void tell(const QLineEdit& line, Places& places)
{
    const QString shown = line.displayText().isEmpty() ? line.placeholderText() : line.displayText();
    if (!shown.trimmed().isEmpty())
        places.add(line, {}, inside(line.rect()));
}

void tell(const QPlainTextEdit& box, Places& places)
{
    if (box.toPlainText().trimmed().isEmpty())
        return;
    const int line = box.fontMetrics().height();
    places.add(*box.viewport(), {}, QRect(0, kFrame, box.viewport()->width(), line));
}

void tell(const QComboBox& combo, Places& places)
{
    if (combo.currentText().trimmed().isEmpty() || combo.isEditable())
        return;
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    places.add(combo, {},
               inside(combo.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                    QStyle::SC_ComboBoxEditField, &combo)));
}

template <typename Bar>
void tellActions(const Bar& bar, Places& places)
{
    for (QAction* action : bar.actions()) {
        QRect place = inside(bar.actionGeometry(action));
        if (!action->icon().isNull())
            place.setLeft(place.left() + bar.style()->pixelMetric(QStyle::PM_SmallIconSize) +
                          2 * kPictureGap);
        if (!action->isSeparator())
            places.add(bar, u' ' + action->text(), place);
    }
}

void tellAbout(const QWidget& control, Places& places)
{
    if (const auto* label = qobject_cast<const QLabel*>(&control))
        tell(*label, places);
    else if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        tell(*button, places);
    else if (const auto* bar = qobject_cast<const QTabBar*>(&control))
        tell(*bar, places);
    else if (const auto* box = qobject_cast<const QGroupBox*>(&control))
        tell(*box, places);
    else if (const auto* header = qobject_cast<const QHeaderView*>(&control))
        tell(*header, places);
    else if (const auto* view = qobject_cast<const QAbstractItemView*>(&control))
        tellItems(*view, {}, places);
    else if (const auto* line = qobject_cast<const QLineEdit*>(&control))
        tell(*line, places);
    else if (const auto* text = qobject_cast<const QPlainTextEdit*>(&control))
        tell(*text, places);
    else if (const auto* combo = qobject_cast<const QComboBox*>(&control))
        tell(*combo, places);
    else if (const auto* menuBar = qobject_cast<const QMenuBar*>(&control))
        tellActions(*menuBar, places);
    else if (const auto* menu = qobject_cast<const QMenu*>(&control))
        tellActions(*menu, places);
}

} // namespace

QList<TextPlace> textPlaces(QWidget& window)
{
    Places places(window);
    for (const QWidget* control : shownIn(window))
        tellAbout(*control, places);
    return places.places();
}

} // namespace looks
