// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The stores of a run in the order in which they are brought up, for whoever walks over all of them.

#include "stores/articulosschema.h"
#include "stores/clientesschema.h"
#include "stores/consultasschema.h"
#include "stores/telefonosschema.h"
#include "stores/tiposschema.h"
#include "stores/zonasschema.h"

namespace stores {

inline constexpr std::array kAllStores{kArticulosStore, kClientesStore,  kZonasStore,
                                       kTiposStore,     kConsultasStore, kTelefonosStore};

} // namespace stores
