// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/messagerecorder.h"

namespace testsupport {

MessageRecorder::MessageRecorder()
{
    platform::setMessageBox([this](const platform::Message& message) {
        m_messages.append(message);
        if (m_whileShown)
            m_whileShown(message);
    });
}

MessageRecorder::~MessageRecorder()
{
    platform::setMessageBox({});
}

QStringList MessageRecorder::texts() const
{
    QStringList texts;
    for (const platform::Message& message : m_messages)
        texts.append(message.text);
    return texts;
}

} // namespace testsupport
