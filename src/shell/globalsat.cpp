// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/globalsat.h"

QString NUMEMPRESA;
QString USUARIO;
QString RUTAEMPRESA;
platform::dao::Database BDEMPRESAS;
platform::dao::Recordset RSEMPRESAS;
platform::dao::Database BDCLIENTES;
platform::dao::Recordset RSCLIENTES;
platform::dao::Recordset RSENVIOS;
platform::dao::Recordset RSBANCOS;
platform::dao::Recordset RSCYC;
platform::dao::Recordset RSTARIFAS;
platform::dao::Database BDARTICULOS;
platform::dao::Recordset RSARTICULOS;
platform::dao::Database BDZONAS;
platform::dao::Recordset RSZONAS;
platform::dao::Database BDTIPOS;
platform::dao::Recordset RSTIPOCLI;
platform::dao::Recordset RSTIPOFAMI;
platform::dao::Recordset RSTIPOARTI;
platform::dao::Database BDTELEFONOS;
platform::dao::Recordset RSTELEFONOS;
platform::dao::Database BDASISTENCIAS;
platform::dao::Recordset RSCONSULTAS;
platform::dao::Database BDPOSTAL;
platform::dao::Recordset RSPOSTAL;
platform::dao::Recordset RSREPRESENTANTES;
double TIPOBUSQUEDA = 0;
QString RESULTADOBUSQUEDA;
QString FORMULABUSQUEDA;
double NUMINFORME = 0;
QString TITULOINFORME;
QString FICHEROINFORME;
QString BASEINFORME;
QString BASEINFORME1;
QString BASEINFORME2;
QString BASEINFORME3;
QString BASEINFORME4;
QString BASEINFORME5;
QString BASEINFORME6;
QString BASEINFORME7;
QString CUENTACODIGO;
QString CUENTANOMBRE;
QString CUENTADIRECCION;
QString CUENTACPOSTAL;
QString CUENTALOCALIDAD;
QString CUENTANIF;
QString CUENTATELEFONO;
QString CUENTAFAX;
QString VALORLONGITUD;
int ANCHOLONGITUD = 0;
QString RESULTADOLONGITUD;
QString CPOSTALBUSCADO;
std::int16_t CONTADOR = 0;

namespace {

void closeEverything()
{
    platform::dao::Databases databases = platform::dao::DBEngine().Workspaces(0).Databases();
    while (databases.Count() > 0)
        databases.Item(0).Close();
    for (platform::dao::Recordset* recordset :
         {&RSEMPRESAS, &RSCLIENTES, &RSENVIOS, &RSBANCOS, &RSCYC, &RSTARIFAS, &RSARTICULOS, &RSZONAS,
          &RSTIPOCLI, &RSTIPOFAMI, &RSTIPOARTI, &RSTELEFONOS, &RSCONSULTAS, &RSPOSTAL, &RSREPRESENTANTES})
        *recordset = {};
    for (platform::dao::Database* database : {&BDEMPRESAS, &BDCLIENTES, &BDARTICULOS, &BDZONAS, &BDTIPOS,
                                              &BDTELEFONOS, &BDASISTENCIAS, &BDPOSTAL})
        *database = {};
}

} // namespace

void resetProgramState()
{
    closeEverything();
    for (QString* text :
         {&NUMEMPRESA,    &USUARIO,        &RUTAEMPRESA,     &RESULTADOBUSQUEDA, &FORMULABUSQUEDA,
          &TITULOINFORME, &FICHEROINFORME, &BASEINFORME,     &BASEINFORME1,      &BASEINFORME2,
          &BASEINFORME3,  &BASEINFORME4,   &BASEINFORME5,    &BASEINFORME6,      &BASEINFORME7,
          &CUENTACODIGO,  &CUENTANOMBRE,   &CUENTADIRECCION, &CUENTACPOSTAL,     &CUENTALOCALIDAD,
          &CUENTANIF,     &CUENTATELEFONO, &CUENTAFAX,       &VALORLONGITUD,     &RESULTADOLONGITUD,
          &CPOSTALBUSCADO})
        text->clear();
    TIPOBUSQUEDA = 0;
    NUMINFORME = 0;
    ANCHOLONGITUD = 0;
    CONTADOR = 0;
}
