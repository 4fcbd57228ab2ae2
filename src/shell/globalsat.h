// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The program-wide variables. They have no owner and live until the process ends; every window and store
// works on them directly. Helpers of ours take what they need as arguments and never look here.

#include "platform/dao/dao.h"

#include <QString>

#include <cstdint>

extern QString NUMEMPRESA;  // company number: first five characters of the command line
extern QString USUARIO;     // user name
extern QString RUTAEMPRESA; // company folder, with "\" at its end

extern platform::dao::Database BDEMPRESAS; // catalogue of companies
extern platform::dao::Recordset RSEMPRESAS;

extern platform::dao::Database BDCLIENTES;
extern platform::dao::Recordset RSCLIENTES; // ClientesTabla
extern platform::dao::Recordset RSENVIOS;   // CLIDIRENVIOS
extern platform::dao::Recordset RSBANCOS;   // CLIBANCOSDISP
extern platform::dao::Recordset RSCYC;      // clientescyctabla
extern platform::dao::Recordset RSTARIFAS;  // TarifasCliente

extern platform::dao::Database BDARTICULOS;
extern platform::dao::Recordset RSARTICULOS;

extern platform::dao::Database BDZONAS;
extern platform::dao::Recordset RSZONAS;

extern platform::dao::Database BDTIPOS;
extern platform::dao::Recordset RSTIPOCLI;
extern platform::dao::Recordset RSTIPOFAMI;
extern platform::dao::Recordset RSTIPOARTI;

extern platform::dao::Database BDTELEFONOS;
extern platform::dao::Recordset RSTELEFONOS;

extern platform::dao::Database BDASISTENCIAS;
extern platform::dao::Recordset RSCONSULTAS;

// Read by the lookup and the client window, bound by nobody.
extern platform::dao::Database BDPOSTAL;
extern platform::dao::Recordset RSPOSTAL;
extern platform::dao::Recordset RSREPRESENTANTES;

extern double TIPOBUSQUEDA;       // kind of search asked of the lookup window
extern QString RESULTADOBUSQUEDA; // code chosen in it, empty when nothing was chosen
extern QString FORMULABUSQUEDA;   // selection formula of the rows ticked in it

extern double NUMINFORME; // report asked for
extern QString TITULOINFORME;
extern QString FICHEROINFORME;
extern QString BASEINFORME;
extern QString BASEINFORME1;
extern QString BASEINFORME2;
extern QString BASEINFORME3;
extern QString BASEINFORME4;
extern QString BASEINFORME5;
extern QString BASEINFORME6;
extern QString BASEINFORME7;

// Values handed to the chart of accounts by a client's save.
extern QString CUENTACODIGO;
extern QString CUENTANOMBRE;
extern QString CUENTADIRECCION;
extern QString CUENTACPOSTAL;
extern QString CUENTALOCALIDAD;
extern QString CUENTANIF;
extern QString CUENTATELEFONO;
extern QString CUENTAFAX;

extern QString VALORLONGITUD;     // code to fill with zeros
extern int ANCHOLONGITUD;         // its width
extern QString RESULTADOLONGITUD; // the filled code
extern QString CPOSTALBUSCADO;    // last postal code searched

extern std::int16_t CONTADOR; // one counter shared by many loops

/// Puts every variable back to what it is when the process starts; closes what is open. For tests.
void resetProgramState();
