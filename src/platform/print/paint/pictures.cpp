// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/paint/pictures.h"

#include "platform/system/paths.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QImageReader>

namespace platform::print {
namespace {

constexpr int kCachedKilobytes = 64 * 1024;

} // namespace

Pictures::Pictures(QString folder)
    : m_folder(std::move(folder))
    , m_pictures(kCachedKilobytes)
{}

bool Pictures::isPicture(QByteArrayView bytes)
{
    QByteArray borrowed = QByteArray::fromRawData(bytes.data(), bytes.size());
    QBuffer buffer(&borrowed);
    return buffer.open(QIODevice::ReadOnly) && !QImageReader::imageFormat(&buffer).isEmpty();
}

QImage Pictures::keep(const QByteArray& key, const QImage& image)
{
    m_pictures.insert(key, new QImage(image), 1 + image.sizeInBytes() / 1024); // the cache takes it
    return image;
}

QImage Pictures::picture(const QString& name)
{
    if (name.isEmpty())
        return {};
    const QByteArray key = "name:" + name.toUtf8();
    if (const QImage* known = m_pictures.object(key))
        return *known;
    const bool absolute = QFileInfo(name).isAbsolute() || name.startsWith(u'\\');
    return keep(key, QImage(nativePath(absolute ? name : m_folder + u'/' + name)));
}

QImage Pictures::picture(QByteArrayView bytes)
{
    const QByteArray key = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
    if (const QImage* known = m_pictures.object(key))
        return *known;
    return keep(key, QImage::fromData(bytes));
}

} // namespace platform::print
