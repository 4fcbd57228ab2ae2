// SPDX-License-Identifier: GPL-3.0-or-later
#include "launch.h"

#include "watcher.h"

#include <QFile>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace bench {

namespace {

constexpr double kKilobytes = 1024;

/// What the program says of this machine's desktop doesn't belong into the table.
void sendToNowhere(int stream)
{
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, stream);
}

[[noreturn]] void become(const Program& program, const QByteArray& display)
{
    std::vector<QByteArray> texts{QFile::encodeName(program.path)};
    for (const QString& argument : program.arguments)
        texts.push_back(argument.toLocal8Bit());
    std::vector<char*> arguments;
    for (QByteArray& text : texts)
        arguments.push_back(text.data());
    arguments.push_back(nullptr);
    sendToNowhere(STDOUT_FILENO);
    sendToNowhere(STDERR_FILENO);
    qputenv("DISPLAY", display);
    qputenv("QT_QPA_PLATFORM", "xcb");
    if (program.folder.isEmpty() || chdir(QFile::encodeName(program.folder).constData()) == 0)
        execv(arguments.front(), arguments.data());
    _exit(EXIT_FAILURE);
}

/// Value of a "name: 123 kB" line of a file of the process, in MB.
double megabytes(pid_t process, const char* file, const QByteArray& name)
{
    QFile from(QStringLiteral("/proc/%1/%2").arg(process).arg(QLatin1String(file)));
    if (from.open(QIODevice::ReadOnly)) {
        for (const QByteArray& line : from.readAll().split('\n')) {
            if (line.startsWith(name + ':'))
                return line.simplified().split(' ').value(1).toDouble() / kKilobytes;
        }
    }
    throw std::runtime_error("the process doesn't tell its memory");
}

double milliseconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

/// Ends the process, whatever became of it, and takes what it used.
class Ended
{
public:
    explicit Ended(pid_t process)
        : m_process(process)
    {}
    ~Ended() { static_cast<void>(processor()); }
    Ended(const Ended&) = delete;
    Ended& operator=(const Ended&) = delete;

    double processor()
    {
        if (m_process == 0)
            return 0;
        rusage used{};
        kill(m_process, SIGKILL);
        wait4(m_process, nullptr, 0, &used);
        m_process = 0;
        return milliseconds(used.ru_utime) + milliseconds(used.ru_stime);
    }

private:
    pid_t m_process;
};

} // namespace

Launch launch(const Program& program, const QByteArray& display)
{
    Watcher watcher(display);
    const auto begin = std::chrono::steady_clock::now();
    const pid_t process = fork();
    if (process == 0)
        become(program, display);
    Ended ended(process);
    try {
        watcher.waitUntilUsable();
    } catch (const std::runtime_error& fault) {
        throw std::runtime_error(program.path.toStdString() + ": " + fault.what());
    }

    Launch result;
    result.wall = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
    result.peak = megabytes(process, "status", "VmHWM");
    result.share = megabytes(process, "smaps_rollup", "Pss");
    result.processor = ended.processor();
    return result;
}

} // namespace bench
