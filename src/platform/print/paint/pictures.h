// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Pictures of a report, read once: beside the report file, or by a path that a column holds.

#include <QHash>
#include <QImage>
#include <QString>

namespace platform::print {

class Pictures
{
public:
    /// Folder of the report file, as a native path.
    explicit Pictures(QString folder)
        : m_folder(std::move(folder))
    {}

    /// The picture, or a null image when it can't be read. A relative name counts from the report's folder.
    [[nodiscard]] const QImage& picture(const QString& name);

private:
    QString m_folder;
    QHash<QString, QImage> m_pictures;
};

} // namespace platform::print
