// SPDX-License-Identifier: GPL-3.0-or-later
//
// orvane-bench-launch [FOLDER [ROUNDS]]: starts the program on six stores of 100,000 rows a table, and an
// empty window beside it, on a virtual display, and prints the table. It needs some 400 MB of disk in FOLDER
// (a temporary folder unless named; one that a run has filled is used again). Ends with 1 when a ratio lies
// above its aim.

#include "fixture.h"
#include "launch.h"
#include "watcher.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <vector>

using namespace Qt::StringLiterals;
using bench::Launch;
using bench::Program;

namespace {

constexpr int kRounds = 21;
constexpr double kAtMost = 3;

struct Line
{
    const char* name;
    double Launch::*value;
    const char* unit;
};

constexpr Line kLines[] = {{"start, exec to usable window", &Launch::wall, "ms"},
                           {"processor for it", &Launch::processor, "ms"},
                           {"peak of resident memory", &Launch::peak, "MB"},
                           {"memory, shared pages by their part", &Launch::share, "MB"}};

/// The fixture has the stores of one company; the catalogue that names it is the demo's.
void addCatalogue(const QString& programs)
{
    const QString name = u"Empresas de Quenda.mdb"_s;
    if (QFile::exists(name))
        return;
    const QTemporaryDir demo;
    const QString root = demo.filePath(u"root"_s);
    if (QProcess::execute(programs + u"/orvane-data"_s, {u"demo"_s, root, u"--size"_s, u"1"_s}) != 0 ||
        !QFile::copy(root + u'/' + name, name))
        throw std::runtime_error("no catalogue of companies");
}

double median(const std::vector<Launch>& launches, double Launch::*value)
{
    std::vector<double> values;
    values.reserve(launches.size());
    for (const Launch& one : launches)
        values.push_back(one.*value);
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Whether every ratio is within its aim.
bool print(const std::vector<Launch>& ours, const std::vector<Launch>& empty)
{
    bool allMet = true;
    std::printf("| case | ours | empty window | ratio | aim |\n|---|---|---|---|---|\n");
    for (const Line& line : kLines) {
        const double of = median(ours, line.value);
        const double floor = median(empty, line.value);
        std::printf("| %s | %.1f %s | %.1f %s | %.2f | ≤ %g |\n", line.name, of, line.unit, floor, line.unit,
                    of / floor, kAtMost);
        allMet = allMet && of / floor <= kAtMost;
    }
    return allMet;
}

bool measure(const QString& folder, int rounds)
{
    const QString programs = QCoreApplication::applicationDirPath();
    bench::useDataRoot(folder);
    addCatalogue(programs);
    const Program program{programs + u"/orvane"_s, {u"00001"_s, u"ana"_s}, folder};
    const Program floor{programs + u"/orvane-bench-empty"_s, {}, {}};

    const bench::Display display;
    std::vector<Launch> ours;
    std::vector<Launch> empty;
    for (int round = -1; round < rounds; ++round) { // the first one warms the caches
        const Launch one = bench::launch(floor, display.name());
        const Launch other = bench::launch(program, display.name());
        if (round < 0)
            continue;
        empty.push_back(one);
        ours.push_back(other);
    }
    return print(ours, empty);
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir temporary;
    const QString folder = argc > 1 ? QDir(QString::fromLocal8Bit(argv[1])).absolutePath() : temporary.path();
    const int rounds = argc > 2 ? std::atoi(argv[2]) : kRounds;
    try {
        return measure(folder, std::max(rounds, 1)) ? 0 : 1;
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "orvane-bench-launch: %s\n", fault.what());
        return 2;
    }
}
