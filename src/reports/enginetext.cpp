// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/enginetext.h"

#include "platform/text/cp1252.h"

#include <algorithm>

using namespace platform;

namespace reports {

EngineText engineText(const QString& text)
{
    QByteArray bytes;
    bytes.reserve(text.size() + 1);
    for (const QChar character : text)
        bytes.append(static_cast<char>(cp1252Code(character).value_or(static_cast<unsigned char>('?'))));
    bytes.append('\0');
    return EngineText(bytes);
}

EngineText enginePath(const QString& path)
{
    QByteArray bytes = toCp1252(path).value_or(path.toUtf8());
    bytes.append('\0');
    return EngineText(bytes);
}

void fillEngineField(char* field, std::size_t size, const QString& path)
{
    std::fill_n(field, size, '\0');
    const QByteArray bytes = enginePath(path).bytes();
    const std::size_t length = std::min(size - 1, static_cast<std::size_t>(bytes.size() - 1));
    std::copy_n(bytes.constData(), length, field);
}

QString fromEngineField(const char* field, std::size_t size)
{
    const char* end = std::find(field, field + size, '\0');
    return fromCp1252(QByteArrayView(field, end - field));
}

} // namespace reports
