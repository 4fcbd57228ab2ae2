// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/system/process.h"
#include "support/failureof.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

using namespace platform;
using namespace Qt::StringLiterals;
using support::failureOf;

namespace {

constexpr auto kEndArgument = "end-the-process";

/// What the test's own executable does when it is started to be ended.
int endAtOnce()
{
    std::atexit([] { std::puts("left the usual way"); });
    std::fputs("written before", stdout);
    endProcess();
}

} // namespace

class ProcessTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void programIsStartedByItsBareName();
    void missingProgramIsFileNotFound();
    void hookStartsInsteadOfTheSystem();
    void programThatTheHookDoesNotHaveIsFileNotFound();
    void mailAddressGoesToTheDesktop();
    void mailAddressGoesToTheOpenerWhereThereIsNoMailScript();
    void mailWithoutADesktopNeverFails();
    void hookTakesTheMailAddress();
    void processEndsAtOnceWithItsOutputWritten();
    void hookThatThrowsLeavesTheProcessRunning();
    void emptyHooksBringTheRealThingBack();

private:
    /// Puts a script on the search path that writes its arguments into a file beside it.
    void givenProgram(const QString& name) const;
    [[nodiscard]] QByteArray argumentsOf(const QString& name) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_searchPath;
};

void ProcessTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_searchPath = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(m_folder->path()));
}

void ProcessTest::cleanup()
{
    setProcessHooks({});
    qputenv("PATH", m_searchPath);
}

void ProcessTest::givenProgram(const QString& name) const
{
    QFile script(m_folder->filePath(name));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\nprintf '%s' \"$*\" > \"$0.part\"\n/bin/mv \"$0.part\" \"$0.out\"\n");
    QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

QByteArray ProcessTest::argumentsOf(const QString& name) const
{
    QFile output(m_folder->filePath(name + u".out"_s));
    return output.open(QIODevice::ReadOnly) ? output.readAll() : QByteArrayLiteral("not started");
}

void ProcessTest::programIsStartedByItsBareName()
{
    givenProgram(u"WINPOPUP.EXE"_s);

    startProgram(u"WINPOPUP.EXE"_s);

    QTRY_COMPARE(argumentsOf(u"WINPOPUP.EXE"_s), QByteArray());
}

void ProcessTest::missingProgramIsFileNotFound()
{
    QCOMPARE(failureOf([] { startProgram(u"WINPOPUP.EXE"_s); }), kFileNotFound);
}

void ProcessTest::hookStartsInsteadOfTheSystem()
{
    QString started;
    ProcessHooks hooks;
    hooks.start = [&](const QString& name) {
        started = name;
        return true;
    };
    setProcessHooks(hooks);

    startProgram(u"WINPOPUP.EXE"_s);

    QCOMPARE(started, u"WINPOPUP.EXE"_s);
}

void ProcessTest::programThatTheHookDoesNotHaveIsFileNotFound()
{
    ProcessHooks hooks;
    hooks.start = [](const QString&) { return false; };
    setProcessHooks(hooks);

    QCOMPARE(failureOf([] { startProgram(u"x"_s); }), kFileNotFound);
}

void ProcessTest::mailAddressGoesToTheDesktop()
{
    givenProgram(u"xdg-email"_s);
    givenProgram(u"xdg-open"_s);

    openMail(u"ana@example.org; $(x)"_s);

    QTRY_COMPARE(argumentsOf(u"xdg-email"_s), QByteArrayLiteral("mailto:ana@example.org; $(x)"));
    QCOMPARE(argumentsOf(u"xdg-open"_s), QByteArrayLiteral("not started"));
}

void ProcessTest::mailAddressGoesToTheOpenerWhereThereIsNoMailScript()
{
    givenProgram(u"xdg-open"_s);

    openMail(u"ana@example.org"_s);

    QTRY_COMPARE(argumentsOf(u"xdg-open"_s), QByteArrayLiteral("mailto:ana@example.org"));
}

void ProcessTest::mailWithoutADesktopNeverFails()
{
    QCOMPARE(failureOf([] { openMail(u"ana@example.org"_s); }), 0);
}

void ProcessTest::hookTakesTheMailAddress()
{
    QString taken;
    ProcessHooks hooks;
    hooks.mail = [&](const QString& address) { taken = address; };
    setProcessHooks(hooks);

    openMail(u"ana@example.org"_s);

    QCOMPARE(taken, u"ana@example.org"_s);
}

void ProcessTest::processEndsAtOnceWithItsOutputWritten()
{
    QProcess process;

    process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(kEndArgument)});

    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(process.readAllStandardOutput(), QByteArrayLiteral("written before"));
}

void ProcessTest::hookThatThrowsLeavesTheProcessRunning()
{
    ProcessHooks hooks;
    hooks.end = [] { throw std::runtime_error("ended"); };
    setProcessHooks(hooks);

    QVERIFY_THROWS_EXCEPTION(std::runtime_error, endProcess());
}

void ProcessTest::emptyHooksBringTheRealThingBack()
{
    ProcessHooks hooks;
    hooks.start = [](const QString&) { return true; };
    setProcessHooks(hooks);

    setProcessHooks({});

    QCOMPARE(failureOf([] { startProgram(u"WINPOPUP.EXE"_s); }), kFileNotFound);
}

int main(int argc, char* argv[])
{
    if (argc == 2 && qstrcmp(argv[1], kEndArgument) == 0)
        return endAtOnce();
    const QCoreApplication application(argc, argv);
    ProcessTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_process.moc"
