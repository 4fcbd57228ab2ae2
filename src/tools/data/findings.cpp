// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/findings.h"

namespace tools {

Findings::Findings(QTextStream& out)
    : m_out(out)
{}

void Findings::fault(const Spot& spot, const QString& text)
{
    ++m_faults;
    write(u"fallo", spot, text);
}

void Findings::notice(const Spot& spot, const QString& text)
{
    ++m_notices;
    write(u"aviso", spot, text);
}

void Findings::write(QStringView kind, const Spot& spot, const QString& text)
{
    QString line = kind.toString();
    for (const QString& part : {spot.file, spot.table, spot.row, text}) {
        if (!part.isEmpty())
            line += QStringLiteral(": ") + part;
    }
    // A value may hold line ends; a finding is one line.
    line.replace(u'\r', u' ').replace(u'\n', u' ');
    m_out << line << u'\n';
}

} // namespace tools
