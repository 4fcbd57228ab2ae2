// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Kept texts and pictures of pages, and what is said when a page no longer agrees with them.

#include <QImage>
#include <QString>

namespace platform::print {

/// Environment variable that makes the kept files anew from what comes out now.
inline constexpr char kRenewVariable[] = "ORVANE_RENEW_GOLDENS";

class GoldenFiles
{
public:
    /// Folder of the kept files, where those that don't agree are left for looking, and whether the kept
    /// ones are made anew first.
    GoldenFiles(QString kept, QString actual, bool renew);

    /// "" when the kept text is exactly this one; else one line: the first line that differs, where the
    /// text lies now, how the kept one is renewed.
    [[nodiscard]] QString compareText(const QString& name, const QString& text) const;
    /// "" when the kept picture has this size and nearly these points; else one line as above. Beside the
    /// picture a second one shows what differs, in red.
    [[nodiscard]] QString comparePicture(const QString& name, const QImage& picture) const;

    /// Share of points whose colours lie further apart than a step that no eye sees.
    [[nodiscard]] static double differingShare(const QImage& left, const QImage& right);

private:
    [[nodiscard]] QString leave(const QString& name, const QByteArray& bytes) const;
    [[nodiscard]] static QString message(const QString& what, const QString& path);

    QString m_kept;
    QString m_actual;
    bool m_renew;
};

/// The program's output, "" when it fails.
[[nodiscard]] QByteArray outputOf(const QString& program, const QStringList& arguments);

} // namespace platform::print
