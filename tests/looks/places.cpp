// SPDX-License-Identifier: GPL-3.0-or-later
#include "looks/places.h"

#include "looks/shown.h"

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace looks {

namespace {

QString placeOf(const QRect& rect)
{
    return u"%1,%2 %3x%4"_s.arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

/// Controls that lay out parts of their own, one over another where they please; what scrolls is larger than
/// its frame.
bool arrangesItsOwnParts(const QWidget& parent)
{
    const QWidget* scrolled = parent.parentWidget();
    return qobject_cast<const QAbstractScrollArea*>(&parent) ||
           qobject_cast<const QAbstractScrollArea*>(scrolled) || qobject_cast<const QComboBox*>(&parent) ||
           qobject_cast<const QAbstractSpinBox*>(&parent) || qobject_cast<const QLineEdit*>(&parent) ||
           qobject_cast<const QTabBar*>(&parent) || qobject_cast<const QMenuBar*>(&parent);
}

QList<QWidget*> shownChildren(const QWidget& parent)
{
    QList<QWidget*> children;
    for (QWidget* child : parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (child->isVisible() && !child->isWindow() && !child->size().isEmpty())
            children.append(child);
    }
    return children;
}

/// The handle between two parts reaches over both, to be caught more easily; a row of tabs stands on the
/// frame of its page.
bool mayOverlap(const QWidget& parent, const QWidget& one, const QWidget& other)
{
    if (qobject_cast<const QSplitter*>(&parent))
        return qobject_cast<const QSplitterHandle*>(&one) || qobject_cast<const QSplitterHandle*>(&other);
    return qobject_cast<const QTabWidget*>(&parent) != nullptr;
}

QStringList misplacedIn(const QWidget& parent)
{
    QStringList faults;
    const QList<QWidget*> children = shownChildren(parent);
    for (qsizetype i = 0; i < children.size(); ++i) {
        const QWidget& one = *children.at(i);
        if (!parent.rect().contains(one.geometry()))
            faults += u"%1 (%2) leaves %3 (%4)"_s.arg(nameOf(one), placeOf(one.geometry()), nameOf(parent),
                                                      placeOf(parent.rect()));
        for (qsizetype j = i + 1; j < children.size(); ++j) {
            const QWidget& other = *children.at(j);
            if (one.geometry().intersects(other.geometry()) && !mayOverlap(parent, one, other))
                faults += u"%1 (%2) overlaps %3 (%4)"_s.arg(nameOf(one), placeOf(one.geometry()),
                                                            nameOf(other), placeOf(other.geometry()));
        }
    }
    return faults;
}

} // namespace

QStringList misplaced(QWidget& window, QSize room)
{
    QStringList faults;
    const QSize has = window.size();
    if (has.width() > room.width() || has.height() > room.height())
        faults += u"%1 takes %2x%3 of a screen of %4x%5"_s.arg(nameOf(window))
                      .arg(has.width())
                      .arg(has.height())
                      .arg(room.width())
                      .arg(room.height());
    for (const QWidget* parent : shownIn(window)) {
        if (!arrangesItsOwnParts(*parent))
            faults += misplacedIn(*parent);
    }
    return faults;
}

} // namespace looks
