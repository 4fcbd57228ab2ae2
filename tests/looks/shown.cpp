// SPDX-License-Identifier: GPL-3.0-or-later
#include "looks/shown.h"

#include <QVariant>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace looks {

QList<QWidget*> shownIn(QWidget& window)
{
    QList<QWidget*> shown{&window};
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (control->isVisibleTo(&window) && !control->isWindow() && control->window() == &window)
            shown.append(control);
    }
    return shown;
}

QString nameOf(const QWidget& control)
{
    QString name = control.objectName();
    if (name.isEmpty())
        name = QString::fromLatin1(control.metaObject()->className());
    for (const char* property : {"text", "title", "currentText", "placeholderText"}) {
        const QString words = control.property(property).toString();
        if (!words.isEmpty())
            return u"%1 «%2»"_s.arg(name, words.left(40));
    }
    return name;
}

bool isSound(const QStringList& faults)
{
    for (const QString& fault : faults)
        qWarning("%s", qPrintable(fault));
    return faults.isEmpty();
}

} // namespace looks
