// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system/messagebox.h"
#include "platform/window/appearance.h"

#include <QApplication>
#include <QMessageBox>

namespace platform {

namespace {

QString titleOf(const Message& message)
{
    if (!message.title.isEmpty())
        return message.title;
    const QString shown = QGuiApplication::applicationDisplayName();
    return shown.isEmpty() ? QCoreApplication::applicationName() : shown;
}

void showMessage(const Message& message)
{
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(titleOf(message));
    box.setTextFormat(Qt::PlainText);
    box.setText(message.text);
    box.setIcon(message.icon == MessageIcon::Information ? QMessageBox::Information : QMessageBox::NoIcon);
    box.addButton(QStringLiteral("Aceptar"), QMessageBox::AcceptRole);
    box.exec();
}

} // namespace

void installMessageBox()
{
    setRealMessageBox(showMessage);
}

} // namespace platform
