// SPDX-License-Identifier: GPL-3.0-or-later
//
// orvane-bench [FOLDER [CASE]]: measures the data layer beside its raw floor and prints the table of
// README.md. It needs some 400 MB of disk in FOLDER (a temporary folder unless named; one that a run has
// filled is used again) and a minute or two. CASE is one of seek, walk, list, save, start, show, lookup,
// search, key.

#include "cases.h"
#include "fixture.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int kRounds = 7;
constexpr int kSaveRounds = 25;

struct NamedCase
{
    const char* name;
    bench::Case (*make)();
    int rounds;
};

constexpr NamedCase kCases[] = {
    {"seek", bench::seekCase, kRounds},         {"walk", bench::walkCase, kRounds},
    {"list", bench::listCase, kRounds},         {"save", bench::saveCase, kSaveRounds},
    {"start", bench::startCase, kRounds},       {"show", bench::showCase, kRounds},
    {"lookup", bench::openLookupCase, kRounds}, {"search", bench::typedSearchCase, kRounds},
};

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir temporary;
    const QByteArray only = argc > 2 ? QByteArray(argv[2]) : QByteArray();
    bench::useDataRoot(argc > 1 ? QDir(QString::fromLocal8Bit(argv[1])).absolutePath() : temporary.path());
    bench::bringUpStores();

    std::vector<bench::Result> results;
    for (const NamedCase& what : kCases) {
        if (only.isEmpty() || only == what.name)
            results.push_back(bench::measure(what.make(), what.rounds));
    }
    const bool measuresKeys = only.isEmpty() || only == "key";
    if (results.empty() && !measuresKeys) {
        std::fprintf(stderr, "orvane-bench: no case %s\n", only.constData());
        return 2;
    }
    bench::print(results);
    if (measuresKeys) {
        const bench::KeyTimes keys = bench::lookupKeyTimes();
        std::printf("\nA letter typed in the lookup, 99th percentile: %.2f ms (aim 4); a bare view's move "
                    "and repaint: "
                    "%.2f ms\n",
                    keys.ours, keys.bareView);
    }
    return 0;
}
