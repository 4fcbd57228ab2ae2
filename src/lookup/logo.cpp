// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/logo.h"

#include "platform/window/imagelabel.h"
#include "platform/window/spacing.h"

#include <QCoreApplication>
#include <QIcon>
#include <QVersionNumber>

using namespace Qt::StringLiterals;

QString versionHint()
{
    const QVersionNumber version = QVersionNumber::fromString(QCoreApplication::applicationVersion());
    return u"Quenda.- Ver.%1.%2 Build %3"_s.arg(version.majorVersion())
        .arg(version.minorVersion())
        .arg(version.microVersion());
}

void showPicture(platform::ImageLabel& label, platform::Icon picture)
{
    label.setPixmap(platform::icon(picture).pixmap(platform::kLogoPicture, platform::kLogoPicture));
}
