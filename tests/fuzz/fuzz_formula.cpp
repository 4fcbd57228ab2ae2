// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a formula: parsed, bound and evaluated, which must neither crash, hang nor grow without end,
// and a fault lies within the text.
#include "fuzz/require.h"
#include "platform/print/formula/formulafixture.h"

#include <QString>

using namespace platform::print::formula;
using namespace Qt::StringLiterals;
using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    FormulaFixture report;
    report.givenColumn(u"Z.C"_s, Type::Text, u"Peña"_s);
    report.givenColumn(u"Z.N"_s, Type::Number, 12.5);
    report.givenColumn(u"Z.X"_s, Type::Text);
    report.givenFormula(u"F"_s, u"{Z.N} * 2"_s);
    const QString text = QString::fromUtf8(QByteArrayView(data, static_cast<qsizetype>(size)));

    Formula formula(text);
    formula.bind(report);
    const Outcome outcome = formula.fault() ? Outcome{{}, formula.fault()} : formula.evaluate(report);
    if (!outcome.fault)
        return 0;
    // CR LF, LF and a lone CR each end one line.
    const QStringList lines = QString(text).replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').split(u'\n');
    const Position place = outcome.fault->position;
    require(place.line >= 1 && place.line <= lines.size(), "a fault's line exists");
    require(place.column >= 1 && place.column <= lines[place.line - 1].size() + 1, "a fault's column exists");
    require(!outcome.fault->text.isEmpty(), "a fault has a text");
    return 0;
}
