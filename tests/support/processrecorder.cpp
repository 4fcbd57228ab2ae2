// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/processrecorder.h"

#include "platform/system/process.h"

namespace testsupport {

ProcessRecorder::ProcessRecorder()
{
    platform::ProcessHooks hooks;
    hooks.start = [this](const QString& name) {
        if (m_missing.contains(name))
            return false;
        m_started.append(name);
        return true;
    };
    hooks.mail = [this](const QString& address) { m_mails.append(address); };
    hooks.end = [this] {
        ++m_endings;
        throw ProcessEnded{};
    };
    platform::setProcessHooks(std::move(hooks));
}

ProcessRecorder::~ProcessRecorder()
{
    platform::setProcessHooks({});
}

} // namespace testsupport
