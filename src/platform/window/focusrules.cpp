// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/focusrules.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPointer>
#include <QWidget>

namespace platform {

namespace {

int quietDepth = 0;

/// Notes, ahead of the controls, whether the focus left a control because that was hidden or disabled.
class FlightWatch : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // The style is told of each change as well.
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (!widget)
            return false;
        if (event->type() == QEvent::FocusOut) {
            m_fled = !widget->isVisible() || !widget->isEnabled();
        } else if (event->type() == QEvent::FocusIn) {
            // Hiding and disabling move the focus with the reason Tab; any other reason is a fresh move.
            m_arrivesByFlight = m_fled && static_cast<QFocusEvent*>(event)->reason() == Qt::TabFocusReason;
            m_fled = false;
        }
        return false;
    }

    [[nodiscard]] bool isFlight(const QFocusEvent& event) const
    {
        return event.gotFocus() ? m_arrivesByFlight : m_fled;
    }

private:
    bool m_fled = false;
    bool m_arrivesByFlight = false;
};

const FlightWatch& flightWatch()
{
    static QPointer<FlightWatch> watch;
    if (!watch) {
        watch = new FlightWatch(qApp);
        qApp->installEventFilter(watch);
    }
    return *watch;
}

// The watch must stand before the first focus event is judged.
void startFlightWatch()
{
    flightWatch();
}
Q_COREAPP_STARTUP_FUNCTION(startFlightWatch)

bool isMoveOfFocus(Qt::FocusReason reason)
{
    return reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
           reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason ||
           reason == Qt::OtherFocusReason;
}

} // namespace

bool focusRuleRuns(const QFocusEvent& event)
{
    return quietDepth == 0 && isMoveOfFocus(event.reason()) && !flightWatch().isFlight(event);
}

QuietFocus::QuietFocus()
{
    ++quietDepth;
}

QuietFocus::~QuietFocus()
{
    --quietDepth;
}

void setFocusTo(QWidget* control)
{
    if (!control->isVisible() || !control->isEnabled())
        throw Failure(kInvalidProcedureCall, QStringLiteral("the control cannot take the focus"));
    if (!control->hasFocus())
        control->setFocus(Qt::OtherFocusReason);
}

} // namespace platform
