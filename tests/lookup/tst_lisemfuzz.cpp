// SPDX-License-Identifier: GPL-3.0-or-later

// Thousands of hostile texts, typed and pasted into the lookup's own box over every kind that has a store:
// whatever they are, no file changes, no other table is read, nothing is shown and the window goes on.
// ORVANE_FUZZ_SEED and ORVANE_FUZZ_TEXTS (texts a kind) in the environment try others and more.

#include "lookup/hostiletexts.h"
#include "lookup/lookupfixture.h"

#include "platform/dao/dao.h"
#include "shell/globalsat.h"
#include "support/failingengine.h"
#include "support/messagerecorder.h"

#include <QApplication>
#include <QClipboard>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QtTest>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

using namespace Qt::StringLiterals;
using lookuptest::HostileTexts;
using lookuptest::LookupFixture;
using testsupport::Operation;

namespace {

constexpr quint32 kSeed = 20'260'101;
constexpr int kTexts = 600; // a kind
constexpr int kRows = 40;
constexpr int kClients = 20;
constexpr int kZones = 9;
constexpr int kLongestTyped = 60; // longer texts are pasted
/// Far above what a text takes, on a loaded machine too.
constexpr std::chrono::seconds kFreeze{60};
const QString kCanary = u"CANARIO"_s;

constexpr std::array kWrites{Operation::Create,
                             Operation::Repair,
                             Operation::Insert,
                             Operation::Update,
                             Operation::Erase,
                             Operation::CreateTable,
                             Operation::AddColumn,
                             Operation::DropColumn,
                             Operation::CreateIndex,
                             Operation::DropIndex,
                             Operation::SetAllowZeroLength};

int fromEnvironment(const char* name, int otherwise)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
}

/// Ends the test with a word on what was being tried when that takes too long.
class Watchdog
{
public:
    explicit Watchdog(const QByteArray& about)
        : m_thread([this, about](const std::stop_token& stop) {
            std::unique_lock lock(m_mutex);
            if (!m_ended.wait_for(lock, stop, kFreeze, [&] { return stop.stop_requested(); }))
                qFatal("the window hangs: %s", about.constData());
        })
    {}

private:
    std::mutex m_mutex;
    std::condition_variable_any m_ended;
    std::jthread m_thread; // last: it stops before the others go
};

QSet<QStringList> rowsOf(QStringView what, bool three)
{
    QSet<QStringList> rows;
    for (int i = 0; i < kRows; ++i) {
        const QString number = u"%1"_s.arg(i + 1, 6, 10, QChar(u'0'));
        QStringList row{number, u"%1 ñandú %2 %3"_s.arg(what, QChar(u'A' + i % 26), number)};
        if (three)
            row.append(u"Jaca"_s);
        rows.insert(row);
    }
    return rows;
}

/// Puts a row that can be told at sight into every table of a store but one.
void plantCanaries(const QString& path, const QString& ownTable)
{
    const auto store = platform::storage::sqliteEngine()->open(path, platform::storage::Sharing::Shared);
    for (const auto& definition : store->tables()) {
        if (definition.name.compare(ownTable, Qt::CaseInsensitive) == 0)
            continue;
        platform::storage::Row row;
        for (const auto& column : definition.columns) {
            const bool isText = column.type != platform::storage::ColumnType::Number;
            const QString text = column.size > 0 ? kCanary.left(column.size) : kCanary;
            row.push_back(isText ? platform::Value(text) : platform::Value(7.0));
        }
        store->openTable(definition.name)->insert(row);
    }
}

} // namespace

class LisemFuzzTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void noTextDoesMoreThanSearchItsOwnTable_data();
    void noTextDoesMoreThanSearchItsOwnTable();
    void manyTextsReachTheEngineAsQueries();

private:
    [[nodiscard]] QStringList namesWorthTrying() const;
    [[nodiscard]] QMap<QString, QByteArray> files() const;
    [[nodiscard]] QSet<QStringList> rowsShown() const;
    void enter(const QString& text);
    void emptyBox();

    std::optional<LookupFixture> f;
    std::shared_ptr<testsupport::FailingEngine> m_engine;
};

void LisemFuzzTest::init()
{
    m_engine = std::make_shared<testsupport::FailingEngine>();
    platform::dao::DBEngine().setStorage(m_engine);
    f.emplace();
    f->givenClients(rowsOf(u"Cliente", true).values());
    f->givenZones(rowsOf(u"Zona", false).values());
    f->givenTypes(rowsOf(u"Tipo", false).values());
    f->givenArticles(rowsOf(u"Artículo", false).values());
    plantCanaries(f->storePath(u"Clientes.mdb"_s), u"ClientesTabla"_s);
    plantCanaries(f->storePath(u"ZONAS.MDB"_s), u"ZONATAB"_s);
    plantCanaries(f->storePath(u"TIPOS DE CLIENTES.MDB"_s), u"TIPOCLI"_s);
    plantCanaries(f->storePath(u"ARTICULOS.MDB"_s), u"ArticulosTabla"_s);
}

void LisemFuzzTest::cleanup()
{
    f.reset();
    platform::dao::DBEngine().setStorage(nullptr);
}

QStringList LisemFuzzTest::namesWorthTrying() const
{
    return {u"CLIENTESTABLA"_s,
            u"CliNombre"_s,
            u"CLICODIGO"_s,
            u"CliDireccion"_s,
            u"CLIDIRENVIOS"_s,
            u"CLIENVICODIGO"_s,
            u"CLIENVIDIRECCION"_s,
            u"CLIBANCOSDISP"_s,
            u"clientescyctabla"_s,
            u"ZONATAB"_s,
            u"ZONCODIGO"_s,
            u"ZONDESCRIPCION"_s,
            u"TIPOCLI"_s,
            u"TIPODESCRIPCION"_s,
            u"ARTICULOSTABLA"_s,
            u"DESCRIPCION"_s,
            u"ARTCODIGO"_s,
            u"FAMILIA"_s,
            u"sqlite_master"_s,
            u"store_metadata"_s,
            u"MSysObjects"_s,
            u"name"_s,
            u"sql"_s,
            u"rowid"_s,
            u"*"_s,
            f->storePath(u"ZONAS.MDB"_s),
            f->storePath(u"Clientes.mdb"_s),
            f->storePath(u"NUEVO.MDB"_s)};
}

/// The folder of the stores: every file and what is in it.
QMap<QString, QByteArray> LisemFuzzTest::files() const
{
    const QDir folder = QFileInfo(f->storePath(u"ZONAS.MDB"_s)).dir();
    QMap<QString, QByteArray> sums;
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden)) {
        QFile file(folder.filePath(name));
        QCryptographicHash sum(QCryptographicHash::Sha256);
        if (file.open(QIODevice::ReadOnly) && sum.addData(&file))
            sums.insert(name, sum.result());
    }
    return sums;
}

QSet<QStringList> LisemFuzzTest::rowsShown() const
{
    QSet<QStringList> rows;
    for (int row = 1; row < f->busi().rows(); ++row) {
        QStringList texts;
        for (int col = 0; col < f->busi().cols(); ++col)
            texts.append(f->busi().textMatrix(row, col));
        rows.insert(texts);
    }
    return rows;
}

/// Puts a text in the box as a user does, key by key or, a long one, from the clipboard; then Enter.
void LisemFuzzTest::enter(const QString& text)
{
    if (text.size() > kLongestTyped) {
        QGuiApplication::clipboard()->setText(text);
        QTest::keySequence(&f->box(), QKeySequence::Paste);
    } else {
        for (const char32_t character : text.toStdU32String()) {
            QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&character, 1));
            QApplication::sendEvent(&f->box(), &down);
        }
    }
    f->press(f->box(), Qt::Key_Return);
}

void LisemFuzzTest::emptyBox()
{
    QTest::keySequence(&f->box(), QKeySequence::SelectAll);
    f->press(f->box(), Qt::Key_Delete);
}

void LisemFuzzTest::noTextDoesMoreThanSearchItsOwnTable_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("table");
    QTest::addColumn<QStringView>("what");
    QTest::newRow("clients") << kClients << u"CLIENTESTABLA"_s << QStringView(u"Cliente");
    QTest::newRow("zones") << kZones << u"ZONATAB"_s << QStringView(u"Zona");
    QTest::newRow("types of client") << 15 << u"TIPOCLI"_s << QStringView(u"Tipo");
    QTest::newRow("articles") << 11 << u"ARTICULOSTABLA"_s << QStringView(u"Artículo");
    QTest::newRow("articles to tick") << 111 << u"ARTICULOSTABLA"_s << QStringView(u"Artículo");
}

void LisemFuzzTest::noTextDoesMoreThanSearchItsOwnTable()
{
    QFETCH(int, kind);
    QFETCH(QString, table);
    QFETCH(QStringView, what);
    QSet<QStringList> ownRows = rowsOf(what, kind == kClients);
    if (kind == kZones)
        ownRows.insert({u"0000000001"_s, u"ZONA GENERAL"_s}); // the store brings it along
    const quint32 seed = static_cast<quint32>(fromEnvironment("ORVANE_FUZZ_SEED", kSeed)) + quint32(kind);
    HostileTexts texts(seed, namesWorthTrying());
    const testsupport::MessageRecorder messages;
    f->open(kind);
    emptyBox();
    const auto before = files();
    m_engine->restart();

    for (int number = 0; number < fromEnvironment("ORVANE_FUZZ_TEXTS", kTexts); ++number) {
        const QString text = texts.next();
        const QByteArray about = "kind " + QByteArray::number(kind) + ", seed " + QByteArray::number(seed) +
                                 ", text " + QByteArray::number(number) + ": " +
                                 QTest::toString(text.left(500));
        const Watchdog watchdog(about);

        enter(text);

        QVERIFY2(f->window()->isVisible() && messages.isEmpty(), about);
        QVERIFY2(ownRows.contains(rowsShown()) || f->box().text().trimmed().isEmpty(), about);
        emptyBox();
        QVERIFY2(f->busi().rows() == ownRows.size() + 1, about);
    }

    QVERIFY(!m_engine->tables().isEmpty());
    for (const QString& read : m_engine->tables())
        QVERIFY2(read.compare(table, Qt::CaseInsensitive) == 0, qUtf8Printable(read));
    for (const Operation write : kWrites)
        QCOMPARE(m_engine->count(write), 0);
    QCOMPARE(files(), before);
}

/// The texts would prove nothing if the parser refused them all.
void LisemFuzzTest::manyTextsReachTheEngineAsQueries()
{
    HostileTexts texts(kSeed, namesWorthTrying());
    f->open(kZones);
    int queries = 0;

    for (int number = 0; number < kTexts; ++number) {
        emptyBox();
        m_engine->restart();
        enter(texts.next());
        queries += m_engine->count(Operation::Query);
    }

    QVERIFY2(queries > kTexts / 10, qPrintable(QString::number(queries)));
}

QTEST_MAIN(LisemFuzzTest)
#include "tst_lisemfuzz.moc"
