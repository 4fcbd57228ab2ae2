// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system/messagebox.h"

namespace platform {

namespace {

std::function<void(const Message&)> realBox;
std::function<void(const Message&)> replacedBox;

} // namespace

void messageBox(const Message& message)
{
    if (replacedBox)
        replacedBox(message);
    else if (realBox)
        realBox(message);
}

void setMessageBox(std::function<void(const Message&)> show)
{
    replacedBox = std::move(show);
}

void setRealMessageBox(std::function<void(const Message&)> show)
{
    realBox = std::move(show);
}

} // namespace platform
