// SPDX-License-Identifier: GPL-3.0-or-later
#include "stores/bdarticul.h"

#include "platform/core/regime.h"
#include "shell/globalsat.h"
#include "stores/articulosschema.h"
#include "stores/creation.h"
#include "stores/upgrade.h"

#include <array>

using namespace Qt::StringLiterals;
using platform::attempt;
using platform::holds;
using platform::dao::dbDouble;
using platform::dao::DBEngine;
using platform::dao::dbText;
using stores::ColumnSchema;

namespace {

QString storePath()
{
    return RUTAEMPRESA + u"Articulos.MDB"_s;
}

/// The open procedure up to its upgrade call.
void openArticulos()
{
    attempt([] { BDARTICULOS = DBEngine().Workspaces(0).OpenDatabase(storePath()); });
    attempt([] { RSARTICULOS = BDARTICULOS.OpenRecordset(u"ArticulosTabla"_s, platform::dao::dbOpenTable); });
    attempt([] { RSARTICULOS.setLockEdits(false); });
}

constexpr std::array kBarcodes{
    ColumnSchema{u"ARTICODIGOBARRAS", dbText, 10},
    ColumnSchema{u"ARTIDIGITOCONTROLBARRAS", dbText, 1},
    ColumnSchema{u"ARTICULOCODIGODEBARRAS", dbText, 12},
};

// Ahead of the barcodes in a store created new, behind them in one that got both by upgrade.
constexpr std::array kFreeColumns{
    ColumnSchema{u"CampoTextoLibre1", dbText, 35}, ColumnSchema{u"CampoTextoLibre2", dbText, 35},
    ColumnSchema{u"CampoTextoLibre3", dbText, 35}, ColumnSchema{u"CampoTextoLibre4", dbText, 35},
    ColumnSchema{u"CampoTextoLibre5", dbText, 35}, ColumnSchema{u"CampoNumeroLibre1", dbDouble},
    ColumnSchema{u"CampoNumeroLibre2", dbDouble},  ColumnSchema{u"CampoNumeroLibre3", dbDouble},
    ColumnSchema{u"CampoNumeroLibre4", dbDouble},  ColumnSchema{u"CampoNumeroLibre5", dbDouble},
};

struct Step
{
    int columnsBelow; ///< due while the table has fewer columns than this
    std::span<const ColumnSchema> added;
};

constexpr std::array kSteps{Step{73, kBarcodes}, Step{83, kFreeColumns}};

} // namespace

void CERRARARTICULOS()
{
    attempt([] { RSARTICULOS.Close(); });
    attempt([] { BDARTICULOS.Close(); });
}

void CREARARTICULOS()
{
    stores::createStore(RUTAEMPRESA + stores::kArticulosStore.file.toString(), stores::kArticulosStore);
}

void ABRIRARTICULOS()
{
    openArticulos();
    attempt([] { ACTUALIZARARTICULOS(); });
}

void ACTUALIZARARTICULOS()
{
    const stores::UpgradedTable upgraded{RSARTICULOS,       BDARTICULOS,     storePath(),
                                         u"ArticulosTabla", &ABRIRARTICULOS, &openArticulos};
    for (const Step& step : kSteps) {
        if (holds([&] { return RSARTICULOS.Fields().Count() < step.columnsBelow; }))
            stores::addColumns(upgraded, step.added);
        // No step can do anything for a store that won't open, and each would wait for its locks again.
        if (!stores::isOpen(BDARTICULOS))
            return;
    }
}
