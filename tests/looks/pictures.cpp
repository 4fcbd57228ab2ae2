// SPDX-License-Identifier: GPL-3.0-or-later
#include "looks/pictures.h"

#include "looks/setting.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace looks {

void keepPicture(QWidget& window, const QString& name)
{
    const QString folder = qEnvironmentVariable("ORVANE_LOOK_PICTURES");
    if (folder.isEmpty())
        return;
    QDir().mkpath(folder);
    const QString file = u"%1-%2-x%3-%4pt-%5x%6.png"_s.arg(name, isDarkScheme() ? u"dark"_s : u"light"_s)
                             .arg(scale())
                             .arg(QApplication::font().pointSize())
                             .arg(window.width())
                             .arg(window.height());
    if (!window.grab().save(QDir(folder).filePath(file)))
        qWarning("%s can't be written", qPrintable(file));
}

} // namespace looks
