// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/enginefault.h"

#include "platform/core/failurenumbers.h"

namespace tools {

QString openingFault(const platform::Failure& failure)
{
    switch (failure.number()) {
    case platform::kNotADatabase:
        return QStringLiteral("no es una base de datos o está dañado");
    case platform::kCouldNotLockFile:
    case platform::kLockedByAnother:
        return QStringLiteral("otro puesto lo tiene bloqueado");
    case platform::kCannotOpenFile:
        return QStringLiteral("no hay permiso para abrirlo");
    case platform::kDiskFull:
        return QStringLiteral("el disco está lleno");
    case platform::kDiskOrNetworkError:
        return QStringLiteral("el disco o la red no responde");
    default:
        return QStringLiteral("no se puede abrir (fallo %1)").arg(failure.number());
    }
}

} // namespace tools
