// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/formulafixture.h"

#include "platform/print/formula/to_text.h"

namespace platform::print::formula {

/// Numbers in their shortest form, so that a test sees every decimal; the rest as reports print it.
QString FormulaFixture::shown(const Value& value)
{
    if (const double* number = std::get_if<double>(&value))
        return plainNumber(*number);
    return toText(value);
}

} // namespace platform::print::formula
