// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/unhandledfailure.h"

#include "platform/core/regime.h"
#include "platform/system/messagebox.h"
#include "platform/system/process.h"
#include "shell/failurewords.h"

using namespace Qt::StringLiterals;

namespace shell {

void installUnhandledFailureBox()
{
    platform::setUnhandledFailure([](const platform::Failure& failure) {
        platform::messageBox(
            {.text = u"Se ha producido el error '%1' en tiempo de ejecución.\n\n%2"_s.arg(failure.number())
                         .arg(failureWords(failure.number()))
                         .trimmed(),
             .title = {},
             .icon = platform::MessageIcon::None});
        platform::endProcess();
    });
}

} // namespace shell
