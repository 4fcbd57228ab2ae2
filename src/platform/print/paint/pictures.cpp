// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/paint/pictures.h"

#include "platform/system/paths.h"

#include <QFileInfo>

namespace platform::print {

const QImage& Pictures::picture(const QString& name)
{
    const auto known = m_pictures.constFind(name);
    if (known != m_pictures.constEnd())
        return *known;
    const bool absolute = QFileInfo(name).isAbsolute() || name.startsWith(u'\\');
    const QString path = nativePath(absolute ? name : m_folder + u'/' + name);
    return *m_pictures.insert(name, QImage(path));
}

} // namespace platform::print
