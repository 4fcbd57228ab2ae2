// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system/process.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

#include <QProcess>
#include <QStringList>

#include <cstdio>
#include <cstdlib>

namespace platform {

namespace {

ProcessHooks hooksInUse;

} // namespace

void startProgram(const QString& name)
{
    const bool started =
        hooksInUse.start ? hooksInUse.start(name) : QProcess::startDetached(name, QStringList());
    if (!started)
        throw Failure(kFileNotFound, QStringLiteral("there is no program %1").arg(name));
}

void openMail(const QString& address)
{
    if (hooksInUse.mail) {
        hooksInUse.mail(address);
        return;
    }
    // The desktop's own scripts: they find the mail program of whatever desktop is running.
    const QStringList arguments{QStringLiteral("mailto:") + address};
    if (!QProcess::startDetached(QStringLiteral("xdg-email"), arguments))
        QProcess::startDetached(QStringLiteral("xdg-open"), arguments);
}

void endProcess()
{
    if (hooksInUse.end)
        hooksInUse.end();
    std::fflush(nullptr);
    std::_Exit(EXIT_SUCCESS);
}

void setProcessHooks(ProcessHooks hooks)
{
    hooksInUse = std::move(hooks);
}

} // namespace platform
