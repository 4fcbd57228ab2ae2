// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistance/longitudes.h"

#include "platform/core/regime.h"
#include "platform/text/textfunctions.h"
#include "shell/globalsat.h"

#include <algorithm>

using platform::attempt;

namespace {

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

} // namespace

void AJUSTALONGITUD()
{
    const auto digits = std::count_if(VALORLONGITUD.cbegin(), VALORLONGITUD.cend(), isDigit);
    if (digits != VALORLONGITUD.size()) {
        attempt([] { RESULTADOLONGITUD = platform::Trim(VALORLONGITUD); });
        return;
    }
    const QString number = platform::CStr(platform::Val(VALORLONGITUD));
    attempt([&] { RESULTADOLONGITUD = platform::String(ANCHOLONGITUD - number.size(), u'0') + number; });
}
