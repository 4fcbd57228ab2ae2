// SPDX-License-Identifier: GPL-3.0-or-later
#include "printing.h"

#include "measure.h"
#include "platform/print/data/pushdown.h"
#include "platform/print/definition/read_xml.h"
#include "platform/print/output/exports.h"
#include "platform/print/output/preview.h"
#include "printstore.h"
#include "rawstore.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QPdfWriter>
#include <QPixmap>
#include <QTextLayout>

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <span>
#include <thread>

using namespace Qt::StringLiterals;
using namespace platform::print;
using namespace std::chrono_literals;
using platform::storage::sqlite::GatePass;
using platform::storage::sqlite::Task;

namespace bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kResolution = 600;
constexpr double kDotsPerMillimetre = kResolution / 25.4;
constexpr double kScreenDotsPerMillimetre = 96 / 25.4;
constexpr int kLinesPerPage = 58;
constexpr double kLineHeight = 4.4;
constexpr double kMemoWidth = 76;
constexpr std::array kWidths{16.0, 22.0, 20.0, 54.0, 28.0, 22.0, 20.0};

double millisecondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

QFont plainFont()
{
    QFont font(u"DejaVu Sans"_s);
    font.setPointSizeF(8);
    return font;
}

QDateTime moment()
{
    return QDateTime(QDate(2026, 1, 15), QTime(12, 0));
}

std::unique_ptr<Report> reportOf(Lines lines, const QByteArray& selection = {})
{
    ReadReport read = readReport(printDefinition(lines, selection));
    if (!read.report)
        qFatal("orvane-bench-print: %s", qUtf8Printable(describe(u"bench"_s, read.faults.front())));
    return std::make_unique<Report>(std::move(*read.report));
}

/// Gives each row, by row number, to `take`.
template <typename Take>
void forEachRow(const RawStore& raw, const QStringList& columns, Take&& take)
{
    const QByteArray sql = u"SELECT %1 FROM CONS"_s.arg(columns.join(u", "_s)).toUtf8();
    sqlite3_stmt* statement = raw.prepare(sql.constData());
    while (sqlite3_step(statement) == SQLITE_ROW)
        take(statement);
    sqlite3_finalize(statement);
}

} // namespace

Floors::Floors(const QString& store, const QString& folder)
    : m_store(store)
    , m_pdf(folder + u"/plain.pdf"_s)
{
    const RawStore raw(store);
    forEachRow(raw, printedColumns(), [this](sqlite3_stmt* statement) {
        std::array<QString, 7> line;
        for (std::size_t i = 0; i < line.size(); ++i)
            line[i] = textColumn(statement, static_cast<int>(i));
        line[0] = QString::number(sqlite3_column_int(statement, 0));
        m_lines.push_back(std::move(line));
    });
    forEachRow(raw, {QString::fromLatin1(kMemoColumn)},
               [this](sqlite3_stmt* statement) { m_memos.push_back(textColumn(statement, 0)); });
}

void Floors::readAll() const
{
    const RawStore raw(m_store);
    const GatePass pass = GatePass::forReading(raw.sidecar(), Task::Read);
    qsizetype bytes = 0;
    forEachRow(raw, {u"*"_s}, [&bytes](sqlite3_stmt* statement) {
        const int columns = sqlite3_column_count(statement);
        for (int i = 0; i < columns; ++i) {
            if (sqlite3_column_type(statement, i) == SQLITE_FLOAT) {
                bytes += static_cast<qsizetype>(sqlite3_column_double(statement, i));
                continue;
            }
            const unsigned char* text = sqlite3_column_text(statement, i);
            bytes += text != nullptr ? text[0] + sqlite3_column_bytes(statement, i) : 0;
        }
    });
    keep(bytes);
}

void Floors::writePdf() const
{
    QPdfWriter writer(m_pdf);
    writer.setResolution(kResolution);
    writer.setPageSize(QPageSize(QPageSize::A4));
    QPainter painter(&writer);
    painter.setFont(plainFont());
    for (std::size_t row = 0; row < m_lines.size(); ++row) {
        const std::size_t line = row % kLinesPerPage;
        if (row > 0 && line == 0)
            writer.newPage();
        double x = 0;
        for (std::size_t i = 0; i < kWidths.size(); ++i) {
            const QRectF place(x * kDotsPerMillimetre,
                               static_cast<double>(line) * kLineHeight * kDotsPerMillimetre,
                               kWidths[i] * kDotsPerMillimetre, kLineHeight * kDotsPerMillimetre);
            painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, m_lines[row][i]);
            x += kWidths[i];
        }
    }
}

void Floors::wrapMemos() const
{
    const QFont font = plainFont();
    const double width = kMemoWidth * kScreenDotsPerMillimetre;
    qsizetype lines = 0;
    for (const QString& memo : m_memos) {
        QTextLayout layout(memo, font);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
            line.setLineWidth(width);
        layout.endLayout();
        lines += layout.lineCount();
    }
    keep(lines);
}

Ours::Ours(const QString& store, const QString& folder)
    : m_store(store)
    , m_folder(folder)
{}

std::shared_ptr<Document> Ours::begun(bool memos) const
{
    auto document =
        std::make_shared<Document>(reportOf(memos ? Lines::Memo : Lines::Fixed), m_folder, moment());
    document->begin({m_store}, {});
    return document;
}

std::shared_ptr<Document> Ours::started(bool memos) const
{
    std::shared_ptr<Document> document = begun(memos);
    document->makeFirstPage();
    return document;
}

void Ours::showFirstPage() const
{
    const std::shared_ptr<Document> document = started(false);
    const QSizeF size = document->paper() * kScreenDotsPerMillimetre;
    QImage page(size.toSize(), QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    painter.scale(kScreenDotsPerMillimetre / kUnits, kScreenDotsPerMillimetre / kUnits);
    document->paint(painter, 0);
    keep(page.width());
}

void Ours::selectMonth(bool pushdown) const
{
    const std::unique_ptr<Report> report = reportOf(Lines::Plain, "Mid ({CONS.FEINICIO},4,2) = \"03\"");
    setPushdown(pushdown);
    Execution execution(*report, moment());
    execution.run({m_store}, {});
    setPushdown(true);
    keep(execution.records().view()->size());
}

void Ours::layOut(bool memos) const
{
    const std::shared_ptr<Document> document = started(memos);
    document->makeAllPages();
    keep(document->pageCount());
}

void Ours::writePdf() const
{
    if (!platform::print::writePdf(*started(false), m_folder + u"/ours.pdf"_s, u"Consultas"_s))
        qFatal("orvane-bench-print: the PDF can't be written");
}

namespace {

/// The key comes from outside after `delays`, whatever the window is doing.
double cancelTime(const std::function<std::shared_ptr<Document>()>& document,
                  std::span<const std::chrono::milliseconds> delays)
{
    double worst = 0;
    for (const std::chrono::milliseconds delay : delays) {
        const std::shared_ptr<Document> shown = document();
        PreviewWindow window(shown, {}, {});
        window.show();
        QCoreApplication::processEvents();
        Clock::time_point pressed;
        auto* const key =
            new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier); // the post takes it
        std::thread user([&window, &pressed, key, delay] {
            std::this_thread::sleep_for(delay);
            pressed = Clock::now();
            QCoreApplication::postEvent(&window, key);
        });
        while (!window.wasCancelled() && !shown->isComplete())
            QCoreApplication::processEvents();
        const Clock::time_point done = Clock::now();
        const bool cancelled = window.wasCancelled();
        user.join();
        if (cancelled)
            worst = std::max(worst, std::chrono::duration<double, std::milli>(done - pressed).count());
    }
    return worst;
}

/// Longest turn of the event loop while `isRunning`.
double longestTurn(const std::function<bool()>& isRunning)
{
    double worst = 0;
    while (isRunning()) {
        const auto begin = Clock::now();
        QCoreApplication::processEvents();
        worst = std::max(worst, millisecondsSince(begin));
    }
    return worst;
}

} // namespace

double cancelTimeWhileReading(const Ours& ours)
{
    constexpr std::array kDelays{5ms, 15ms, 30ms, 50ms, 80ms};
    return cancelTime([&ours] { return ours.begun(true); }, kDelays);
}

double cancelTimeWhileComposing(const Ours& ours)
{
    constexpr std::array kDelays{100ms, 137ms, 174ms, 211ms, 248ms};
    return cancelTime([&ours] { return ours.started(true); }, kDelays);
}

double sliceTime(const Ours& ours, const QString& folder)
{
    const std::shared_ptr<Document> document = ours.begun(false);
    PreviewWindow window(document, {}, {});
    window.show();
    QCoreApplication::processEvents();
    const double making = longestTurn([&document] { return !document->isComplete(); });
    const QString file = folder + u"/slices.pdf"_s;
    QFile::remove(file);
    if (!window.exportTo(file))
        qFatal("orvane-bench-print: the PDF can't be written");
    return std::max(making, longestTurn([&file] { return !QFile::exists(file); }));
}

double pageListBytes(const Ours& ours)
{
    const std::shared_ptr<Document> document = ours.started(false);
    document->makeAllPages();
    return static_cast<double>(document->pageListBytes()) / document->pageCount();
}

double goToTime(const Ours& ours)
{
    constexpr int kPages = 100;
    const std::shared_ptr<Document> document = ours.started(false);
    document->makeAllPages();
    PreviewWindow window(document, {}, {});
    window.show();
    QCoreApplication::processEvents();
    double worst = 0;
    for (int i = 1; i <= kPages; ++i) {
        const auto begin = Clock::now();
        window.goTo(document->pageCount() * i / kPages - 1);
        keep(window.grab().width());
        worst = std::max(worst, millisecondsSince(begin));
    }
    return worst;
}

qint64 peakMemory()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toLongLong() * 1024;
    }
    return 0;
}

} // namespace bench
