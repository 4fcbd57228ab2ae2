// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a formula: parsed, bound and evaluated, which must neither crash, hang nor grow without end.
#include "platform/print/formula/formulafixture.h"

#include <QString>

using namespace platform::print::formula;
using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    FormulaFixture report;
    report.givenColumn(u"Z.C"_s, Type::Text, u"Peña"_s);
    report.givenColumn(u"Z.N"_s, Type::Number, 12.5);
    report.givenColumn(u"Z.X"_s, Type::Text);
    report.givenFormula(u"F"_s, u"{Z.N} * 2"_s);
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    (void)report.run(QString::fromUtf8(bytes));
    return 0;
}
