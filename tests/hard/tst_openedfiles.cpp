// SPDX-License-Identifier: GPL-3.0-or-later

// Every file that the real program opens, makes, renames or removes, whatever company number and user name it
// is given: nothing outside the data root, the program's folder and the system's own. The system calls are
// recorded by strace.

#include "support/tempdataroot.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QtTest>

#include <algorithm>
#include <csignal>

using namespace Qt::StringLiterals;

class OpenedFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nothingOutsideIsTouched_data();
    void nothingOutsideIsTouched();
};

namespace {

/// How long the program must have opened nothing to be taken for idle.
constexpr int kSilenceMs = 2000;
constexpr int kPatienceMs = 90'000;

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A file that grows as long as something happens.
class Silence
{
public:
    explicit Silence(QString path)
        : m_path(std::move(path))
    {
        m_since.start();
    }
    [[nodiscard]] bool hasCome()
    {
        const qint64 size = QFileInfo(m_path).size();
        if (size != m_size)
            m_since.restart();
        m_size = size;
        return size > 0 && m_since.elapsed() > kSilenceMs;
    }

private:
    QString m_path;
    QElapsedTimer m_since;
    qint64 m_size = 0;
};

/// Paths in double quotes of every call that did something; relative ones count from the current directory.
QStringList touchedPaths(const QByteArray& log)
{
    static const QRegularExpression kPath(u"\"((?:[^\"\\\\]|\\\\.)*)\""_s);
    QStringList paths;
    for (const QByteArray& line : log.split('\n')) {
        if (line.contains("ENOENT") || line.contains("+++") || line.contains("---"))
            continue;
        auto matches = kPath.globalMatch(QString::fromUtf8(line));
        while (matches.hasNext()) {
            const QString path = matches.next().captured(1);
            paths.append(QDir::cleanPath(QDir::current().absoluteFilePath(path)));
        }
    }
    return paths;
}

/// Ends the program itself, since strace lets no signal through. Each line of its log begins with a process.
void endProgram(const QByteArray& log)
{
    const auto process = log.left(log.indexOf(' ')).toInt();
    if (process > 0)
        ::kill(process, SIGTERM);
}

bool isBelow(const QString& path, const QString& folder)
{
    return path == folder || path.startsWith(folder + u'/');
}

} // namespace

void OpenedFilesTest::initTestCase()
{
    QVERIFY2(!QStandardPaths::findExecutable(u"strace"_s).isEmpty(), "strace is missing");
}

void OpenedFilesTest::nothingOutsideIsTouched_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("opensStores");
    const auto row = [](const char* name, const QStringList& arguments, bool opensStores = false) {
        QTest::newRow(name) << arguments << opensStores;
    };
    row("as it should be", {u"00012"_s, u"ana"_s}, true);
    row("folders upwards as number", {u"../.."_s, u"ana"_s});
    row("a number that leads upwards", {u"1/../"_s, u"ana"_s});
    row("a number that leads upwards, the other stroke", {u"1\\..\\"_s, u"ana"_s});
    row("the root's own folder", {u"1/../../../../../../etc"_s, u"ana"_s});
    row("an absolute path", {u"/etc/passwd"_s, u"ana"_s});
    row("folders upwards as name", {u"00012"_s, u"../../../../../../etc/passwd"_s}, true);
    row("an absolute path as name", {u"00012"_s, u"/etc/passwd"_s}, true);
    row("a very long number", {QString(20000, u'9'), u"ana"_s});
    row("a very long name", {u"00012"_s, QString(50000, u'ñ')}, true);
    row("Arabic digits", {u"٠٠٠١٢"_s, u"علي"_s});
    row("Chinese", {u"一二三四五"_s, u"用户"_s});
    row("signs beyond the base plane", {u"🂡🂡🂡🂡🂡"_s, u"🂡"_s});
    row("half a surrogate pair and controls", {u"0\x01\x02\t1"_s, u"\x7f"_s});
    row("a wildcard", {u"0*?[1"_s, u"%s%n"_s});
    row("a query", {u"1' OR"_s, u"'; DROP TABLE EMP; --"_s});
    row("options of the toolkit", {u"-platform"_s, u"xcb"_s, u"-qwindowtitle"_s, u"x"_s});
    row("nothing", {});
}

void OpenedFilesTest::nothingOutsideIsTouched()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, opensStores);
    const testsupport::TempDataRoot root;
    const QTemporaryDir home;
    const QTemporaryDir records;
    const QString log = records.filePath(u"calls"_s);
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, home.path());
    environment.insert(u"XDG_RUNTIME_DIR"_s, home.path());
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    program.setProcessEnvironment(environment);
    program.start(
        u"strace"_s,
        QStringList{u"-f"_s, u"-qq"_s, u"-s"_s, u"4096"_s, u"-e"_s,
                    u"trace=open,openat,openat2,creat,mkdir,mkdirat,rename,renameat,renameat2,unlink,"
                    "unlinkat,link,linkat,symlink,symlinkat,truncate,chmod,fchmodat"_s,
                    u"-o"_s, log, QStringLiteral(ORVANE_PROGRAM)} +
            arguments);
    QVERIFY(program.waitForStarted());
    Silence silence(log);
    QTRY_VERIFY_WITH_TIMEOUT(silence.hasCome() || program.state() == QProcess::NotRunning, kPatienceMs);
    endProgram(contentOf(log));
    QVERIFY(program.waitForFinished());

    const QStringList paths = touchedPaths(contentOf(log));

    QVERIFY2(paths.size() > 20, "the program hardly started");
    QCOMPARE(!paths.filter(u"TELEFONOS DE CLIENTES.MDB"_s).isEmpty(), opensStores);
    const QString canonicalRoot = QFileInfo(root.path()).canonicalFilePath();
    const QStringList allowed{root.path(),
                              canonicalRoot,
                              home.path(),
                              QFileInfo(QStringLiteral(ORVANE_PROGRAM)).path(),
                              u"/usr"_s,
                              u"/lib"_s,
                              u"/lib64"_s,
                              u"/etc"_s,
                              u"/proc"_s,
                              u"/sys"_s,
                              u"/var/cache/fontconfig"_s,
                              u"/dev/null"_s,
                              u"/dev/urandom"_s,
                              u"/dev/dri"_s};
    QStringList outside;
    for (const QString& path : paths) {
        if (std::none_of(allowed.begin(), allowed.end(),
                         [&](const QString& folder) { return isBelow(path, folder); }))
            outside.append(path);
    }
    QCOMPARE(outside, QStringList());
}

QTEST_GUILESS_MAIN(OpenedFilesTest)
#include "tst_openedfiles.moc"
