// SPDX-License-Identifier: GPL-3.0-or-later
//
// orvane-bench-print [FOLDER]: measures the print engine over 100,000 consultations beside plain SQLite (L),
// a plain QPdfWriter loop (P) and Qt's own line breaking (W), and prints the table. Takes some two minutes
// and 60 MB of disk in FOLDER (a temporary folder unless named; its store is used again). The program starts
// itself to measure memory in a process that has done nothing else. Ends with 1 when a ratio lies above its
// aim.

#include "printing.h"
#include "printstore.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;
using bench::Floors;
using bench::Ours;

namespace {

constexpr int kRounds = 5;
constexpr int kLongRounds = 3;
constexpr double kMegabyte = 1024.0 * 1024.0;
constexpr double kFreeMegabytes = 40;

struct Line
{
    const char* name;
    double ours;
    const char* floorText;
    double floor;
    double atMost;
    const char* unit = "ms";
};

using Works = std::vector<std::function<void()>>;

double milliseconds(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

/// Median milliseconds of each work. They take turns, so that a machine that changes its speed changes it for
/// all of them.
std::vector<double> medians(const Works& works, int rounds)
{
    std::vector<std::vector<double>> times(works.size());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < works.size(); ++i)
            times[i].push_back(milliseconds(works[i]));
    }
    std::vector<double> result;
    for (std::vector<double>& list : times) {
        std::sort(list.begin(), list.end());
        result.push_back(list[list.size() / 2]);
    }
    return result;
}

bool allHold = true;

void print(const Line& line)
{
    allHold = allHold && line.ours / line.floor <= line.atMost;
    std::printf("| %s | %.1f %s | %s = %.1f %s | %.2f | ≤ %g |\n", line.name, line.ours, line.unit,
                line.floorText, line.floor, line.unit, line.ours / line.floor, line.atMost);
    std::fflush(stdout);
}

QByteArray loadAverage()
{
    QFile file(u"/proc/loadavg"_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll().left(14) : QByteArray("unknown");
}

void measureReading(const Floors& floors, const Ours& ours)
{
    floors.readAll();
    const std::vector<double> time =
        medians({[&] { floors.readAll(); }, [&] { ours.showFirstPage(); }, [&] { ours.selectMonth(false); },
                 [&] { ours.selectMonth(true); }},
                kRounds);
    print({"start to first page, sorted and grouped", time[1], "L", time[0], 10});
    print({"month formula, no push-down", time[2], "L", time[0], 3});
    print({"month formula, pushed down", time[3], "L", time[0], 1});
}

void measureLayout(const Floors& floors, const Ours& ours)
{
    const std::vector<double> time = medians({[&] { floors.readAll(); }, [&] { floors.wrapMemos(); },
                                              [&] { ours.layOut(false); }, [&] { ours.layOut(true); }},
                                             kLongRounds);
    print({"all pages laid out, fixed heights", time[2], "L", time[0], 15});
    print({"all pages laid out, growing memos", time[3], "15 L + 1.5 W", 15 * time[0] + 1.5 * time[1], 1});
    std::printf("| (W alone) | | W = %.1f ms | | |\n", time[1]);
}

void measurePdf(const Floors& floors, const Ours& ours)
{
    const std::vector<double> time = medians(
        {[&] { floors.readAll(); }, [&] { floors.writePdf(); }, [&] { ours.writePdf(); }}, kLongRounds);
    print({"PDF, whole", time[2], "L + P", time[0] + time[1], 1.2});
}

/// Peak of a process of its own that lays the report out, less what it had before; in megabytes.
double memoryOfRun(const QString& folder, const char* kind)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  {u"--memory"_s, QString::fromLatin1(kind), folder});
    process.waitForFinished(-1);
    return process.readAllStandardOutput().toDouble() / kMegabyte;
}

int printMemory(const QString& kind, const QString& folder)
{
    const Ours ours(bench::printStore(folder), folder);
    const qint64 bare = bench::peakMemory();
    ours.layOut(kind == u"memo");
    std::printf("%lld\n", static_cast<long long>(bench::peakMemory() - bare));
    return 0;
}

void measureMemory(const QString& store, const QString& folder)
{
    const QStringList& fixed = bench::printedColumns();
    const QStringList memo = fixed + QStringList{QString::fromLatin1(bench::kMemoColumn)};
    const auto allowed = [&store](const QStringList& columns) {
        return 3 * static_cast<double>(bench::columnBytes(store, columns)) / kMegabyte + kFreeMegabytes;
    };
    print(
        {"memory, fixed heights", memoryOfRun(folder, "fixed"), "3 x columns + 40", allowed(fixed), 1, "MB"});
    print({"memory, growing memos", memoryOfRun(folder, "memo"), "3 x columns + 40", allowed(memo), 1, "MB"});
}

/// The worst of a run; of several runs the best one counts, since whatever else the machine does comes on
/// top.
double leastOf(const std::function<double()>& worst)
{
    double least = worst();
    for (int round = 1; round < kLongRounds; ++round)
        least = std::min(least, worst());
    return least;
}

void measureWindow(const Ours& ours, const QString& folder)
{
    print({"list of pages, a page", bench::pageListBytes(ours), "limit", 2048, 1, "bytes"});
    print({"slice of the event loop, longest", leastOf([&] { return bench::sliceTime(ours, folder); }),
           "limit", 30, 1});
    print({"Esc while rows are read, worst of 5",
           leastOf([&] { return bench::cancelTimeWhileReading(ours); }), "limit", 100, 1});
    print({"Esc while pages are made, worst of 5",
           leastOf([&] { return bench::cancelTimeWhileComposing(ours); }), "limit", 100, 1});
    print({"any page after \"Ir a\", worst of 100", leastOf([&] { return bench::goToTime(ours); }), "limit",
           50, 1});
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.size() == 3 && arguments.first() == u"--memory")
        return printMemory(arguments[1], arguments[2]);

    const QTemporaryDir temporary;
    const QString folder = arguments.isEmpty() ? temporary.path() : QDir(arguments.first()).absolutePath();
    QDir().mkpath(folder);
    const QString store = bench::printStore(folder);
    const Floors floors(store, folder);
    const Ours ours(store, folder);
    std::printf("%d consultations, %.1f MB; load average before: %s\n\n", bench::kConsultations,
                static_cast<double>(QFileInfo(store).size()) / kMegabyte, loadAverage().constData());
    std::printf("| case | ours | floor | ratio | aim |\n|---|---|---|---|---|\n");
    measureReading(floors, ours);
    measureLayout(floors, ours);
    measurePdf(floors, ours);
    measureMemory(store, folder);
    measureWindow(ours, folder);
    std::printf("\nload average after: %s\n", loadAverage().constData());
    if (!allHold)
        std::printf("a ratio lies above its aim\n");
    return allHold ? 0 : 1;
}
