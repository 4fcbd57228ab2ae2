// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Pictures of a report: beside the report file, by a path that a column holds, or out of a column itself. The
// ones used last are kept.

#include <QByteArrayView>
#include <QCache>
#include <QImage>
#include <QString>

namespace platform::print {

class Pictures
{
public:
    /// Folder of the report file, as a native path.
    explicit Pictures(QString folder);

    /// Whether bytes begin as a picture of a kind that can be shown does.
    [[nodiscard]] static bool isPicture(QByteArrayView bytes);

    /// The picture of a file, or a null image when it can't be read or the name is empty. A relative name
    /// counts from the report's folder.
    [[nodiscard]] QImage picture(const QString& name);
    /// The picture that stands in these bytes, or a null image.
    [[nodiscard]] QImage picture(QByteArrayView bytes);

private:
    QImage keep(const QByteArray& key, const QImage& image);

    QString m_folder;
    QCache<QByteArray, QImage> m_pictures; ///< by name or by digest; cost in KB
};

} // namespace platform::print
