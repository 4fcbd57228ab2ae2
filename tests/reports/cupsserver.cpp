// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/cupsserver.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace reporttest {

namespace {

constexpr char kNumberTag = 0x21;
constexpr char kFlagTag = 0x22;
constexpr int kWait = 20000; // milliseconds

template <typename T>
QByteArray bigEndian(T number)
{
    QByteArray bytes(sizeof number, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

/// Name of an attribute behind its length.
QByteArray named(const QByteArray& name)
{
    return bigEndian(static_cast<qint16>(name.size())) + name;
}

void write(const QString& path, const QString& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("the scheduler's configuration can't be written");
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

bool SpooledJob::hasNumber(const QByteArray& name, qint32 value) const
{
    return attributes.contains(kNumberTag + named(name) + bigEndian(qint16(4)) + bigEndian(value));
}

bool SpooledJob::hasFlag(const QByteArray& name) const
{
    return attributes.contains(kFlagTag + named(name) + bigEndian(qint16(1)) + '\1');
}

bool SpooledJob::hasAttribute(const QByteArray& name) const
{
    return attributes.contains(named(name));
}

CupsServer::CupsServer()
{
    for (const QString& folder : {u"spool/tmp"_s, u"cache"_s, u"state"_s, u"etc"_s})
        QDir(m_folder.path()).mkpath(folder);
    write(file(u"cupsd.conf"_s), u"Listen %1/socket\n"
                                 "Browsing No\n"
                                 "WebInterface No\n"
                                 "DefaultAuthType None\n"
                                 "PreserveJobFiles Yes\n"
                                 "DirtyCleanInterval 0\n"
                                 "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                                 "<Policy default>\n<Limit All>\nOrder allow,deny\nAllow all\n</Limit>\n"
                                 "</Policy>\n"_s.arg(m_folder.path()));
    write(file(u"cups-files.conf"_s), u"ServerRoot %1/etc\n"
                                      "RequestRoot %1/spool\n"
                                      "TempDir %1/spool/tmp\n"
                                      "CacheDir %1/cache\n"
                                      "StateDir %1/state\n"
                                      "AccessLog %1/access\n"
                                      "ErrorLog %1/log\n"
                                      "PageLog %1/pages\n"
                                      "CreateSelfSignedCerts no\n"
                                      "FileDevice Yes\n"_s.arg(m_folder.path()));
    qputenv("CUPS_SERVER", file(u"socket"_s).toUtf8());
    m_scheduler.start(QString::fromUtf8(ORVANE_CUPSD),
                      {u"-f"_s, u"-c"_s, file(u"cupsd.conf"_s), u"-s"_s, file(u"cups-files.conf"_s)});
}

CupsServer::~CupsServer()
{
    m_scheduler.terminate();
    if (!m_scheduler.waitForFinished(kWait))
        m_scheduler.kill();
}

bool CupsServer::isRunning()
{
    const bool listens = QTest::qWaitFor(
        [this] { return QFile::exists(file(u"socket"_s)) || m_scheduler.state() == QProcess::NotRunning; },
        kWait);
    return listens && m_scheduler.state() == QProcess::Running;
}

bool CupsServer::administer(const QStringList& arguments)
{
    QProcess lpadmin;
    lpadmin.start(QString::fromUtf8(ORVANE_LPADMIN), arguments);
    return lpadmin.waitForFinished(kWait) && lpadmin.exitCode() == 0;
}

bool CupsServer::addQueue(const QString& name)
{
    return administer({u"-p"_s, name, u"-E"_s, u"-m"_s, u"raw"_s, u"-v"_s, u"file:///dev/null"_s});
}

bool CupsServer::makeDefault(const QString& queue)
{
    return administer({u"-d"_s, queue});
}

QList<SpooledJob> CupsServer::jobs() const
{
    const QDir spool(file(u"spool"_s));
    QList<SpooledJob> found;
    // "c" and the job's number hold the attributes, "d", the number and "-001" the document.
    for (const QString& name : spool.entryList({u"c?????"_s}, QDir::Files, QDir::Name)) {
        const QString document = spool.filePath(u'd' + name.mid(1) + u"-001"_s);
        if (QFile::exists(document))
            found.append({contentOf(spool.filePath(name)), document});
    }
    return found;
}

QByteArray CupsServer::log() const
{
    return contentOf(file(u"log"_s));
}

} // namespace reporttest
