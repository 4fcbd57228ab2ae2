// SPDX-License-Identifier: GPL-3.0-or-later

// A station of its own process for the tests of sharing: works on the stores of the current directory through
// the real store procedures, and says on its output what it has saved.
//
//   store_station write NAME          writes for ever; "C key", "T key", "A number" after each row saved
//   store_station begin               makes and opens the stores as a first start does; then "begun", and
//                                     how many clients, consultations and telephones it sees
//   store_station load NAME SECONDS   writes and reads; at its end "rows=N failures=N worst=MILLISECONDS"
//   store_station talk                answers "add KEY" and "has KEY" from its input

#include "platform/core/failure.h"
#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/bdcliente.h"
#include "stores/consultas.h"
#include "stores/telefonos.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>

using namespace Qt::StringLiterals;

namespace {

void say(const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

void addClient(const QString& key)
{
    RSCLIENTES.AddNew();
    RSCLIENTES[u"CliCodigo"].setValue(key);
    RSCLIENTES[u"CliNombre"].setValue(u"CLIENTE "_s + key);
    RSCLIENTES.Update();
}

bool hasClient(const QString& key)
{
    RSCLIENTES.setIndex(u"CliCodigoIndice"_s);
    RSCLIENTES.Seek(u"=", key);
    return !RSCLIENTES.NoMatch();
}

void addTelephone(const QString& key)
{
    RSTELEFONOS.AddNew();
    RSTELEFONOS[u"TELECODIGOEMPRESA"].setValue(u"00012"_s);
    RSTELEFONOS[u"TELECODIGO"].setValue(key);
    RSTELEFONOS[u"TELETELEFONO"].setValue(u"911111111"_s);
    RSTELEFONOS.Update();
}

void addConsultation(const QString& client, double order)
{
    RSCONSULTAS.AddNew();
    RSCONSULTAS[u"ORDEN"].setValue(order);
    RSCONSULTAS[u"CLICONSULTA"].setValue(client);
    RSCONSULTAS[u"DESCRIPCION"].setValue(QString(2000, u'x'));
    RSCONSULTAS.Update();
}

QString keyOf(const QString& name, int number)
{
    return name + QString::number(number).rightJustified(10 - name.size(), u'0');
}

/// Runs the body and says the line, unless it fails: a crowd may keep a station waiting for too long.
template <typename Body>
void acknowledged(const QString& line, Body&& body)
{
    try {
        body();
        say(line);
    } catch (const platform::Failure&) {
        return;
    }
}

int begin()
{
    for (void (*const procedure)() :
         {&CREARCLIENTES, &ABRIRCLIENTES, &CREARCONSULTAS, &ABRIRCONSULTAS, &CREARTELEFONOS, &ABRIRTELEFONOS})
        procedure();
    say(u"begun %1 %2 %3"_s.arg(RSCLIENTES.RecordCount())
            .arg(RSCONSULTAS.RecordCount())
            .arg(RSTELEFONOS.RecordCount()));
    return 0;
}

int write(const QString& name)
{
    ABRIRCLIENTES();
    ABRIRTELEFONOS();
    ABRIRCONSULTAS();
    say(u"ready"_s);
    for (int number = 1;; ++number) {
        const QString key = keyOf(name, number);
        acknowledged(u"C "_s + key, [&] { addClient(key); });
        acknowledged(u"T "_s + key, [&] { addTelephone(key); });
        acknowledged(u"A "_s + QString::number(number), [&] { addConsultation(name, number); });
    }
}

/// Runs the body and keeps the longest time that one run took.
template <typename Body>
void timed(qint64& worst, int& failures, Body&& body)
{
    QElapsedTimer timer;
    timer.start();
    try {
        body();
    } catch (const platform::Failure&) {
        ++failures;
    }
    worst = std::max(worst, timer.elapsed());
}

int load(const QString& name, int seconds)
{
    ABRIRCLIENTES();
    QElapsedTimer running;
    running.start();
    int rows = 0;
    int failures = 0;
    qint64 worst = 0;
    while (running.elapsed() < qint64{seconds} * 1000) {
        const QString key = keyOf(name, rows + 1);
        timed(worst, failures, [&] {
            addClient(key);
            ++rows;
        });
        timed(worst, failures, [&] { static_cast<void>(hasClient(key)); });
        timed(worst, failures, [] { static_cast<void>(RSCLIENTES.RecordCount()); });
    }
    say(u"rows=%1 failures=%2 worst=%3"_s.arg(rows).arg(failures).arg(worst));
    return 0;
}

int talk()
{
    ABRIRCLIENTES();
    say(u"ready"_s);
    std::string line;
    while (std::getline(std::cin, line)) {
        const QString command = QString::fromStdString(line);
        const QString key = command.mid(4);
        if (command.startsWith(u"add "_s)) {
            addClient(key);
            say(u"added"_s);
        } else {
            say(hasClient(key) ? u"yes"_s : u"no"_s);
        }
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments.append(QString::fromLocal8Bit(argv[index]));
    RUTAEMPRESA = platform::currentDirectory() + u"\\Empresa00012\\"_s;
    if (arguments.value(0) == u"write")
        return write(arguments.value(1));
    if (arguments.value(0) == u"begin")
        return begin();
    if (arguments.value(0) == u"load")
        return load(arguments.value(1), arguments.value(2).toInt());
    return talk();
}
