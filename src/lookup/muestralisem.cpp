// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/lisem.h"

#include <utility>

namespace {

std::function<void(QWidget*)> showLookup;

} // namespace

void MuestraLISEM(QWidget* parent)
{
    if (showLookup)
        showLookup(parent);
}

void setMuestraLISEM(std::function<void(QWidget* parent)> show)
{
    showLookup = std::move(show);
}
