// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/fault.h"

using namespace Qt::StringLiterals;

namespace platform::print::formula {

QString describe(const QString& formulaName, const Fault& fault)
{
    return u"%1, %2:%3: %4"_s.arg(formulaName, QString::number(fault.position.line),
                                  QString::number(fault.position.column), fault.text);
}

} // namespace platform::print::formula
