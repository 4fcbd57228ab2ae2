// SPDX-License-Identifier: GPL-3.0-or-later

// Another station for the tests: holds a lock on a store until its input ends.
// lockholder PATH shared|exclusive|reading|writing|line

#include "platform/core/failure.h"
#include "platform/storage/sqlite/gate.h"
#include "platform/storage/sqlite/openfile.h"

#include <QFile>
#include <QTextStream>

#include <cstdio>

using namespace platform::storage;

namespace {

void tellAndWait()
{
    std::puts("held");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
}

void hold(const QString& path, const QString& what)
{
    if (what == QLatin1String("shared") || what == QLatin1String("exclusive")) {
        const Sharing sharing = what == QLatin1String("shared") ? Sharing::Shared : Sharing::Exclusive;
        const auto store = sqlite::openStore(path, sharing);
        tellAndWait();
        return;
    }
    const sqlite::Sidecar sidecar(path);
    if (what == QLatin1String("reading")) {
        const sqlite::GatePass pass = sqlite::GatePass::forReading(sidecar, sqlite::Task::Read);
        tellAndWait();
        return;
    }
    if (what == QLatin1String("line")) {
        const sqlite::Place place(sidecar.line());
        tellAndWait();
        return;
    }
    const sqlite::GatePass pass = sqlite::GatePass::forWriting(sidecar, sqlite::Task::Write);
    tellAndWait();
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 3)
        return 2;
    try {
        hold(QFile::decodeName(arguments[1]), QString::fromLatin1(arguments[2]));
    } catch (const platform::Failure& failure) {
        std::printf("%d\n", failure.number());
        return 1;
    }
    return 0;
}
