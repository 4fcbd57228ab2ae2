// SPDX-License-Identifier: GPL-3.0-or-later
#include "hard/works.h"

#include "assistance/consultaspage.h"
#include "hard/diskrecorder.h"
#include "platform/core/regime.h"
#include "platform/window/flexgrid.h"
#include "platform/window/multilinebox.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"
#include "stores/articulosschema.h"
#include "stores/bdarticul.h"
#include "stores/bdcliente.h"
#include "stores/clientesschema.h"
#include "stores/consultas.h"
#include "stores/storefixture.h"
#include "stores/telefonos.h"
#include "stores/tipcli.h"
#include "stores/zone.h"

#include <QDir>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

namespace hardtest {

namespace {

const QString kArticulos = u"Empresa00012/ARTICULOS.MDB"_s;
const QString kClientes = u"Empresa00012/Clientes.mdb"_s;
const QString kZonas = u"Empresa00012/ZONAS.MDB"_s;
const QString kTipos = u"Empresa00012/TIPOS DE CLIENTES.MDB"_s;
const QString kAsistencias = u"Empresa00012/ASISTENCIAS.MDB"_s;
const QString kTelefonos = u"TELEFONOS DE CLIENTES.MDB"_s;

const QString kClient = u"C1"_s;

void removeStores(Scene& scene)
{
    for (const QString& store : {kArticulos, kClientes, kZonas, kTipos, kAsistencias, kTelefonos})
        QFile::remove(scene.fixture.root.path(store));
}

// In skip mode, as the start calls them: a failure in a handler goes to the caller.
template <auto create, auto open>
void makeAndOpen(Scene&)
{
    platform::attempt([] { create(); });
    platform::attempt([] { open(); });
}

template <auto open>
void openAlone(Scene&)
{
    platform::attempt([] { open(); });
}

void leaveAsMade(Scene&) {}

void givenOldClients(Scene& scene)
{
    const QString path = RUTAEMPRESA + u"Clientes.mdb"_s;
    QFile::remove(scene.fixture.root.path(kClientes));
    storetest::makeStore(path, {storetest::firstColumns(stores::kClientesTabla, 48),
                                storetest::firstColumns(stores::kClidirenvios, 7), stores::kClibancosdisp,
                                storetest::unnumberedConcepts()});
    storetest::addRow(path, u"ClientesTabla"_s, {{u"CliCodigo", kClient}, {u"CliNombre", u"UNO"_s}});
    storetest::addRow(path, u"CLIDIRENVIOS"_s,
                      {{u"CLIENVICODIGO", kClient}, {u"CLIENVIDIRECCION", u"Mayor"_s}});
    for (const auto& [article, client] : {std::pair{u"1"_s, u"A"_s}, {u"2"_s, u"A"_s}, {u"1"_s, u"B"_s}})
        storetest::addRow(path, u"clientescyctabla"_s,
                          {{u"clientescycarticulo", article}, {u"clientescyccliente", client}});
}

void givenOldArticles(Scene& scene)
{
    const QString path = RUTAEMPRESA + u"ARTICULOS.MDB"_s;
    QFile::remove(scene.fixture.root.path(kArticulos));
    storetest::makeStore(path, {storetest::firstColumns(stores::kArticulosTabla, 70)});
    storetest::addRow(path, u"ArticulosTabla"_s, {{u"ArtCodigo", u"ART1"_s}, {u"Descripcion", u"Bomba"_s}});
}

void givenClient(Scene& scene)
{
    Scene::openStores();
    ClientFixture& f = scene.fixture;
    f.addClient(kClient, u"UNO"_s);
    f.addShipping(kClient, u"Mayor"_s, u"1"_s);
    f.addShipping(kClient, u"Norte"_s, u"0"_s);
    f.addBank(kClient, u"111"_s);
    f.addTelephone(kClient, u"911"_s);
    f.addConcept(kClient, u"ART1"_s, 1, u"Contrato"_s);
    f.addConsultation(1, kClient, u"tema"_s);
    f.addConsultation(2, kClient, u"otro"_s);
}

void setCells(ClientFixture& f, const QString& grid, int row, const QStringList& texts)
{
    for (int col = 0; col < texts.size(); ++col)
        f.grid(grid)->setTextMatrix(row, col, texts.at(col));
}

void fillClient(Scene& scene, const QString& code)
{
    ClientFixture& f = scene.fixture;
    f.box(u"Text49"_s)->setText(code);
    f.box(u"Text51"_s)->setText(u"TALLERES DEL SUR"_s);
    f.box(u"Text8"_s)->setText(u"B12345678"_s);
    f.control<platform::MultiLineBox>(u"Text60"_s)->setText(QString(6000, u'n'));
    setCells(f, u"vsFlexGrid1"_s, 1, {u"Mayor"_s, u"28001"_s, u"Madrid"_s, u"Debidos"_s, u"Seur"_s, u"0"_s});
    setCells(f, u"vsFlexGrid1"_s, 2, {u"Sur"_s, u"29001"_s, u"Getafe"_s, u"Pagados"_s, u"MRW"_s, u"1"_s});
    setCells(f, u"vsFlexGrid2"_s, 1, {u"Banco"_s, u"0082"_s, u"12"_s, u"07"_s, u"111"_s, u"572"_s, u"1"_s});
    setCells(f, u"vsFlexGrid3"_s, 1, {u"ART1"_s, u"Contrato"_s});
    setCells(f, u"vsFlexGrid4"_s, 1, {u"911"_s, u"12"_s, u"01 Voz"_s, u"Marta"_s});
    setCells(f, u"vsFlexGrid4"_s, 2, {u"912"_s, u"13"_s, u"02 Fax"_s, u"Luis"_s});
}

void readyNewClient(Scene& scene)
{
    Scene::openStores();
    scene.fixture.window().limpiaclientes();
    fillClient(scene, u"C2"_s);
}

void readyKnownClient(Scene& scene)
{
    Scene::openStores();
    scene.fixture.window().limpiaclientes();
    fillClient(scene, kClient);
}

void saveClient(Scene& scene)
{
    scene.fixture.window().EscribeCliente();
}

ConsultasPage& page(Scene& scene)
{
    return *scene.fixture.control<ConsultasPage>(u"consultas"_s);
}

void fillConsultation(Scene& scene, int isRead, const QString& number)
{
    Scene::openStores();
    ClientFixture& f = scene.fixture;
    f.box(u"Text49"_s)->setText(kClient);
    page(scene).limpiaconsultas();
    page(scene).CONSULTALEIDA = isRead;
    f.box(u"Text10"_s)->setText(number);
    f.box(u"Text11"_s)->setText(u"No arranca"_s);
    f.control<platform::MultiLineBox>(u"Text12"_s)->setText(QString(9000, u'p'));
    f.control<platform::MultiLineBox>(u"Text13"_s)->setText(QString(5000, u's'));
    setCells(f, u"vsFlexGrid6"_s, 1,
             {u"20/11/2026"_s, u"09:15:30"_s, u"ana"_s, u"20/11/2026"_s, u"09:20:00"_s, u"02 Cerrada"_s,
              u"01 Si"_s});
}

void readyNewConsultation(Scene& scene)
{
    fillConsultation(scene, 0, u"0000000003"_s);
}

void readyKnownConsultation(Scene& scene)
{
    fillConsultation(scene, 1, u"0000000001"_s);
}

void saveConsultation(Scene& scene)
{
    page(scene).GUARDARCONSULTAS();
}

void readyDeletion(Scene& scene)
{
    readyKnownConsultation(scene);
    ClientFixture& f = scene.fixture;
    f.window().limpiaclientes();
    f.box(u"Text49"_s)->setText(kClient);
    f.window().LeerClientes();
    for (const QString& grid : {u"vsFlexGrid1"_s, u"vsFlexGrid2"_s, u"vsFlexGrid3"_s, u"vsFlexGrid4"_s})
        f.grid(grid)->setRow(1);
}

void deleteLines(Scene& scene)
{
    climant& window = scene.fixture.window();
    window.borraunalinea();
    window.BORRAUNALINEABANCOS();
    window.BORRAUNALINEACYC();
    window.BORRAUNALINEATELEFON();
    page(scene).BORRACONSULTAS();
}

const Work kWorks[] = {
    {"create articles", &removeStores, nullptr, &makeAndOpen<&CREARARTICULOS, &ABRIRARTICULOS>, {kArticulos}},
    {"create clients", &removeStores, nullptr, &makeAndOpen<&CREARCLIENTES, &ABRIRCLIENTES>, {kClientes}},
    {"create zones", &removeStores, nullptr, &makeAndOpen<&CREARZONAS, &ABRIRZONAS>, {kZonas}},
    {"create types", &removeStores, nullptr, &makeAndOpen<&CREARTIPOS, &ABRIRTIPOS>, {kTipos}},
    {"create assistance",
     &removeStores,
     nullptr,
     &makeAndOpen<&CREARCONSULTAS, &ABRIRCONSULTAS>,
     {kAsistencias}},
    {"create telephones",
     &removeStores,
     nullptr,
     &makeAndOpen<&CREARTELEFONOS, &ABRIRTELEFONOS>,
     {kTelefonos}},
    {"open articles", &leaveAsMade, nullptr, &openAlone<&ABRIRARTICULOS>, {kArticulos}},
    {"open clients", &givenClient, nullptr, &openAlone<&ABRIRCLIENTES>, {kClientes}},
    {"open zones", &leaveAsMade, nullptr, &openAlone<&ABRIRZONAS>, {kZonas}},
    {"open types", &leaveAsMade, nullptr, &openAlone<&ABRIRTIPOS>, {kTipos}},
    {"open assistance", &givenClient, nullptr, &openAlone<&ABRIRCONSULTAS>, {kAsistencias}},
    {"open telephones", &givenClient, nullptr, &openAlone<&ABRIRTELEFONOS>, {kTelefonos}},
    {"upgrade clients", &givenOldClients, nullptr, &openAlone<&ABRIRCLIENTES>, {kClientes}},
    {"upgrade articles", &givenOldArticles, nullptr, &openAlone<&ABRIRARTICULOS>, {kArticulos}},
    {"save new client", &givenClient, &readyNewClient, &saveClient, {kClientes, kTelefonos}},
    {"save known client", &givenClient, &readyKnownClient, &saveClient, {kClientes, kTelefonos}},
    {"save new consultation", &givenClient, &readyNewConsultation, &saveConsultation, {kAsistencias}},
    {"save known consultation", &givenClient, &readyKnownConsultation, &saveConsultation, {kAsistencias}},
    {"delete", &givenClient, &readyDeletion, &deleteLines, {kClientes, kTelefonos, kAsistencias}},
};

void writeFiles(const DiskImage& files, const QByteArray& folder)
{
    const DiskImage found = filesBelow(folder);
    for (auto file = found.cbegin(); file != found.cend(); ++file)
        QFile::remove(QFile::decodeName(file.key()));
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        QFile target(QFile::decodeName(file.key()));
        if (!target.open(QIODevice::WriteOnly) || target.write(file.value()) != file.value().size())
            qFatal("the data root can't be written");
    }
}

} // namespace

std::span<const Work> works()
{
    return kWorks;
}

const Work& work(QByteArrayView name)
{
    for (const Work& work : kWorks) {
        if (name == work.name)
            return work;
    }
    qFatal("no work %s", name.data());
}

Scene::Scene(const Work& work)
    : m_work(work)
{
    fixture.open();
    close();
    m_work.given(*this);
    close();
    m_files = filesBelow(folder());
}

void Scene::close()
{
    resetProgramState();
    NUMEMPRESA = u"00012"_s;
    USUARIO = u"ana"_s;
    RUTAEMPRESA = fixture.root.companyPath();
}

void Scene::restore()
{
    close();
    writeFiles(m_files, folder());
    fixture.messages.clear();
}

void Scene::ready()
{
    if (m_work.ready != nullptr)
        m_work.ready(*this);
}

void Scene::openStores()
{
    for (void (*const open)() :
         {&ABRIRARTICULOS, &ABRIRCLIENTES, &ABRIRZONAS, &ABRIRTIPOS, &ABRIRCONSULTAS, &ABRIRTELEFONOS})
        open();
}

} // namespace hardtest
