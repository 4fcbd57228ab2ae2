// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/golden/goldenfiles.h"

#include <QBuffer>
#include <QColor>
#include <QDir>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

constexpr int kUnseenStep = 16;            ///< of 255, for each colour
constexpr int kKeptStep = 17;              ///< kept pictures have 16 shades of each colour, and so are small
constexpr double kToleratedShare = 0.0005; ///< a rule across the page is three times as much

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

QByteArray pngOf(const QImage& picture)
{
    QBuffer buffer;
    picture.save(&buffer, "PNG", 0);
    return buffer.data();
}

QRgb rounded(QRgb point)
{
    const auto nearest = [](int shade) { return (shade + kKeptStep / 2) / kKeptStep * kKeptStep; };
    return qRgb(nearest(qRed(point)), nearest(qGreen(point)), nearest(qBlue(point)));
}

/// Few enough colours for a palette, where the page has no photograph.
QImage forKeeping(const QImage& picture)
{
    QImage kept = picture.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < kept.height(); ++y) {
        for (int x = 0; x < kept.width(); ++x)
            kept.setPixel(x, y, rounded(kept.pixel(x, y)));
    }
    return kept.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither);
}

bool isNear(QRgb left, QRgb right)
{
    const auto near = [](int one, int other) { return std::abs(one - other) <= kUnseenStep; };
    return near(qRed(left), qRed(right)) && near(qGreen(left), qGreen(right)) &&
           near(qBlue(left), qBlue(right));
}

/// The picture pale, with a red point for each that differs from the kept one.
QImage marked(const QImage& kept, const QImage& picture)
{
    QImage shown = picture.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            const bool same = kept.valid(x, y) && isNear(kept.pixel(x, y), picture.pixel(x, y));
            const int pale = 255 - (255 - qGray(picture.pixel(x, y))) / 3;
            shown.setPixel(x, y, same ? qRgb(pale, pale, pale) : qRgb(255, 0, 0));
        }
    }
    return shown;
}

} // namespace

GoldenFiles::GoldenFiles(QString kept, QString actual, bool renew)
    : m_kept(std::move(kept))
    , m_actual(std::move(actual))
    , m_renew(renew)
{}

QString GoldenFiles::leave(const QString& name, const QByteArray& bytes) const
{
    QDir().mkpath(m_actual);
    QString path = m_actual + u'/' + name;
    write(path, bytes);
    return path;
}

QString GoldenFiles::message(const QString& what, const QString& path)
{
    return u"%1; now: %2; look, and if it is right renew with %3=1 ctest -R tst_print_golden"_s.arg(
        what, path, QString::fromLatin1(kRenewVariable));
}

QString GoldenFiles::compareText(const QString& name, const QString& text) const
{
    const QString path = m_kept + u'/' + name;
    if (m_renew)
        write(path, text.toUtf8());
    QFile file(path);
    const QString kept = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    if (kept == text && file.isOpen())
        return {};
    const QStringList before = kept.split(u'\n');
    const QStringList now = text.split(u'\n');
    const auto [left, right] = std::mismatch(before.begin(), before.end(), now.begin(), now.end());
    const auto line = [](const auto& at, const auto& end) {
        return at == end ? u"(end)"_s : at->simplified();
    };
    const QString what = u"%1:%2: kept «%3», now «%4»"_s.arg(name)
                             .arg(left - before.begin() + 1)
                             .arg(line(left, before.end()), line(right, now.end()));
    return message(what, leave(name, text.toUtf8()));
}

QString GoldenFiles::comparePicture(const QString& name, const QImage& picture) const
{
    const QString path = m_kept + u'/' + name;
    if (m_renew)
        write(path, pngOf(forKeeping(picture)));
    const QImage kept(path);
    QString what;
    if (kept.isNull()) {
        what = u"%1: no kept picture"_s.arg(name);
    } else if (kept.size() != picture.size()) {
        what = u"%1: kept %2 x %3 points, now %4 x %5"_s.arg(name)
                   .arg(kept.width())
                   .arg(kept.height())
                   .arg(picture.width())
                   .arg(picture.height());
    } else {
        const double share = differingShare(kept, picture);
        if (share <= kToleratedShare)
            return {};
        what = u"%1: %2 % of the points differ"_s.arg(name).arg(share * 100, 0, 'f', 2);
    }
    (void)leave(QString(name).replace(u".png"_s, u".differs.png"_s), pngOf(marked(kept, picture)));
    return message(what, leave(name, pngOf(picture)));
}

double GoldenFiles::differingShare(const QImage& left, const QImage& right)
{
    qint64 differing = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x)
            differing += isNear(left.pixel(x, y), right.pixel(x, y)) ? 0 : 1;
    }
    return static_cast<double>(differing) / (static_cast<double>(left.width()) * left.height());
}

QByteArray outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        return {};
    return process.readAllStandardOutput();
}

} // namespace platform::print
