// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/launch.h"

#include "platform/core/value.h"
#include "platform/text/textfunctions.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr qsizetype kCompanyLength = 5;
constexpr qsizetype kUserStart = 7;
constexpr double kTwipsPerInch = 1440;
constexpr int kOutsideTwips = 35;

} // namespace

QString commandLine(const QStringList& arguments)
{
    return arguments.mid(1).join(u' ');
}

bool isLaunchedByHand(const QString& commandLine)
{
    return platform::Value(static_cast<double>(commandLine.size())) == platform::Value(QString());
}

QString companyNumber(const QString& commandLine)
{
    return platform::Left(platform::Trim(commandLine), kCompanyLength);
}

QString userName(const QString& commandLine)
{
    return platform::Mid(platform::Trim(commandLine), kUserStart);
}

std::optional<QString> launchFault(const QString& company, const QString& user)
{
    if (!platform::IsNumeric(company) || company.isEmpty() || company.size() != kCompanyLength)
        return u"Parámetro incorrecto"_s;
    if (user.isEmpty())
        return u"El usuario no es correcto"_s;
    return std::nullopt;
}

QString mainWindowTitle(int major, int minor, int revision)
{
    return u"Orvane - Gestión S.A.T. para Quenda Build %1.%2.%3"_s.arg(major).arg(minor).arg(revision);
}

int pixels(int twips, qreal dotsPerInch)
{
    return static_cast<int>(std::lround(twips * dotsPerInch / kTwipsPerInch));
}

BandPlacement bandPlacement(const QRect& screen, qreal dotsPerInch)
{
    const int outside = pixels(kOutsideTwips, dotsPerInch);
    return {.topLeft = screen.topLeft() - QPoint(outside, outside),
            .width = screen.width() + pixels(2 * kOutsideTwips, dotsPerInch)};
}

} // namespace shell
