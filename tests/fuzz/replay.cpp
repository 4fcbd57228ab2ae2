// SPDX-License-Identifier: GPL-3.0-or-later
// Gives a fuzz target every file of the folders named, so that any compiler can try again what the fuzzer
// found worth keeping.
#include <QByteArray>
#include <QDirIterator>
#include <QFile>
#include <QStringList>

#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

namespace {

/// Files fed to the target; a claim that doesn't hold ends the process with its input's name said.
int replay(const QString& folder)
{
    int count = 0;
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            return 0;
        std::printf("%s\n", qPrintable(file.fileName()));
        std::fflush(stdout);
        const QByteArray bytes = file.readAll();
        (void)LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char*>(bytes.constData()),
                                     static_cast<std::size_t>(bytes.size()));
        ++count;
    }
    return count;
}

} // namespace

int main(int argc, char* argv[])
{
    for (int i = 1; i < argc; ++i) {
        if (replay(QFile::decodeName(argv[i])) == 0) {
            std::fprintf(stderr, "nothing to replay in %s\n", argv[i]);
            return 1;
        }
    }
    return argc > 1 ? 0 : 1;
}
