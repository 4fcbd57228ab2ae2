// SPDX-License-Identifier: GPL-3.0-or-later

// Whatever a user types goes raw into a query: it may fail, it may find, but it can never change a store,
// read another table or hold the window up.

#include "lookup/lookupfixture.h"

#include "shell/globalsat.h"
#include "support/messagerecorder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QtTest>

using namespace Qt::StringLiterals;
using lookuptest::LookupFixture;
using lookuptest::Rows;

namespace {

constexpr qint64 kLongestWaitMs = 3000;

Rows manyClients()
{
    Rows rows;
    for (int i = 0; i < 3000; ++i) {
        const QString number = QString::number(i).rightJustified(10, u'0');
        rows.append({number, u"O'Neil ñandú "_s + number, u"Jaca"_s});
    }
    return rows;
}

QMap<QString, QByteArray> stores(const LookupFixture& fixture)
{
    QMap<QString, QByteArray> bytes;
    for (const QString& name : {u"Clientes.mdb"_s, u"ZONAS.MDB"_s}) {
        QFile file(fixture.storePath(name));
        if (file.open(QIODevice::ReadOnly))
            bytes.insert(name, file.readAll());
    }
    return bytes;
}

} // namespace

class LisemRawTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noTextChangesAStore_data();
    void noTextChangesAStore();
    void anApostropheFindsNothingInSilence();
    void aQueryThatClosesTheLiteralStillReadsItsOwnTable();
    void anotherTableIsNeverRead();
};

void LisemRawTextTest::noTextChangesAStore_data()
{
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QString& text) { QTest::newRow(name) << text; };
    row("apostrophe", u"O'Neil"_s);
    row("two apostrophes", u"O''Neil"_s);
    row("all apostrophes", QString(500, u'\''));
    row("second statement", u"x'; DELETE FROM CLIENTESTABLA; --"_s);
    row("drop", u"x*'; DROP TABLE ClientesTabla; SELECT '*"_s);
    row("drop index", u"x'; DROP INDEX CliNombreIndice ON ClientesTabla"_s);
    row("update", u"x' ; UPDATE ClientesTabla SET CliNombre='"_s);
    row("attach", u"x'; ATTACH '/tmp/x' AS x; --"_s);
    row("pragma", u"x'; PRAGMA writable_schema=1; --"_s);
    row("union",
        u"x*' UNION SELECT CLIENVICODIGO, CLIENVIDIRECCION, '' FROM CLIDIRENVIOS WHERE 'a' LIKE '*"_s);
    row("system table", u"x*' UNION SELECT name, sql, '' FROM sqlite_master WHERE 'a' LIKE '*"_s);
    row("always true", u"x*' OR 'a' LIKE '*"_s);
    row("comment", u"x' /* "_s);
    row("open set", u"["_s);
    row("sets", u"[[[[a-]]]!]"_s);
    row("wildcards", u"*?#*?#"_s);
    row("stars", QString(10000, u'*'));
    row("a long set", u'[' + QString(u"ñ-zé"_s).repeated(2500) + u']');
    row("stars with letters", QString(u"*a"_s).repeated(5000));
    row("question marks", QString(10000, u'?'));
    row("long", QString(10000, u'ñ'));
    row("parentheses", QString(10000, u'('));
    row("nested", u"x' OR "_s + QString(3000, u'(') + u"'a'='a"_s);
    row("chain", u"x"_s + QString(u"' OR CLINOMBRE LIKE 'x"_s).repeated(400));
    row("percent", u"%_\\"_s);
    row("another alphabet", u"Привет 漢字 \u202E 😀"_s);
    row("controls", QString(u"a\tb"_s) + QChar(0x7F) + QChar(0x200B));
    row("lone surrogate", QString(QChar(0xD800)));
    row("quotes", u"\"CliNombre\""_s);
    row("semicolon", u";"_s);
    row("markup", u"<b>&amp;</b>"_s);
}

void LisemRawTextTest::noTextChangesAStore()
{
    QFETCH(QString, text);
    LookupFixture fixture;
    fixture.givenClients(manyClients());
    const auto before = stores(fixture);
    const testsupport::MessageRecorder messages;
    fixture.open(20);
    QElapsedTimer timer;
    timer.start();

    fixture.box().setText(text); // as pasted
    fixture.press(fixture.box(), Qt::Key_Return);

    QVERIFY2(timer.elapsed() < kLongestWaitMs, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(stores(fixture) == before);
    QVERIFY(messages.isEmpty());
    QVERIFY(fixture.window()->isVisible());
    for (const QString& name : fixture.column(1))
        QVERIFY2(name.startsWith(u"O'Neil ñandú "), qUtf8Printable(name));
    fixture.box().setText({});
    QCOMPARE(fixture.busi().rows(), 3001);
}

void LisemRawTextTest::anApostropheFindsNothingInSilence()
{
    LookupFixture fixture;
    fixture.givenClients(manyClients());
    const testsupport::MessageRecorder messages;
    fixture.open(20);

    fixture.search(u"O'Neil"_s);

    QCOMPARE(fixture.busi().rows(), 1);
    QVERIFY(messages.isEmpty());
}

void LisemRawTextTest::aQueryThatClosesTheLiteralStillReadsItsOwnTable()
{
    LookupFixture fixture;
    fixture.givenClients(manyClients());
    fixture.open(20);

    fixture.search(u"x*' OR CLICODIGO LIKE '*0000000007"_s);

    QCOMPARE(fixture.column(0), QStringList{u"0000000007"_s});
}

void LisemRawTextTest::anotherTableIsNeverRead()
{
    LookupFixture fixture;
    fixture.givenClients(manyClients());
    fixture.open(20);

    fixture.search(u"x*' UNION SELECT name, name, name FROM sqlite_master WHERE 'a' LIKE '*"_s);

    QCOMPARE(fixture.busi().rows(), 1);
}

QTEST_MAIN(LisemRawTextTest)
#include "tst_lisemrawtext.moc"
