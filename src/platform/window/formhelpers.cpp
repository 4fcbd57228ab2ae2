// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/formhelpers.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QTabBar>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace platform {

namespace {

/// Opens the protected step to the next control.
class FocusMover : public QWidget
{
public:
    static void moveOn(QWidget* form) { (form->*&FocusMover::focusNextPrevChild)(true); }
};

} // namespace

void setMousePointer(QWidget* form, int pointer)
{
    if (pointer == kBusyPointer)
        form->setCursor(Qt::BusyCursor);
    else if (pointer == kDefaultPointer)
        form->unsetCursor();
    else
        throw Failure(kInvalidPropertyValue, QStringLiteral("pointer %1").arg(pointer));
}

int mousePointer(const QWidget* form)
{
    return form->cursor().shape() == Qt::BusyCursor ? kBusyPointer : kDefaultPointer;
}

void sendTab(QWidget* form)
{
    QTimer::singleShot(0, form, [form] {
        // A modal form that the handler opened may not be the active window yet, but it is modal at once.
        const QWidget* modal = QApplication::activeModalWidget();
        if (QApplication::activeWindow() == form && (!modal || modal == form))
            FocusMover::moveOn(form);
    });
}

void placePageInTabOrder(QWidget* before, QWidget* page)
{
    QList<QWidget*> controls;
    for (QWidget* next = page->nextInFocusChain(); next != page; next = next->nextInFocusChain()) {
        if (page->isAncestorOf(next) && (next->focusPolicy() & Qt::TabFocus))
            controls.append(next);
    }
    for (QWidget* control : std::as_const(controls)) {
        QWidget::setTabOrder(before, control);
        before = control;
    }
}

void execModal(QDialog* dialog)
{
    if (dialog->isVisible())
        throw Failure(kFormAlreadyShown, QStringLiteral("the form is shown already"));
    dialog->setWindowModality(Qt::WindowModal);
    dialog->exec();
}

void popupMenu(QMenu* menu, QPoint place)
{
    menu->exec(place);
}

} // namespace platform
