// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/fill.h"

#include "platform/text/textfunctions.h"
#include "tools/data/bulktable.h"
#include "tools/data/wordlists.h"

#include <QTime>

#include <array>

namespace tools {

namespace {

using platform::Null;
using platform::Value;

constexpr QStringView kOpen = u"01 Abierta";
constexpr QStringView kClosed = u"02 Cerrada";

constexpr std::array kTechnicians{
    QStringView(u"Íñigo"),   QStringView(u"Begoña Peña"), QStringView(u"J. Chacón"),
    QStringView(u"Llorenç"), QStringView(u"Marta"),       QStringView(u"Ángel Ñíguez"),
};

/// The working day on which consultation `index` of `count` came in: spread evenly, never on a weekend.
QDate dayOf(int index, int count)
{
    const qint64 days = firstDay().daysTo(lastDay());
    const QDate day = firstDay().addDays(days * index / std::max(count, 1));
    return day.dayOfWeek() > 5 ? day.addDays(8 - day.dayOfWeek()) : day;
}

QTime timeOfWork(Random& random)
{
    return {random.between(8, 18), random.below(60), random.below(60)};
}

struct Ending
{
    Value state;
    bool answered = false;
};

/// Old consultations are closed, some of the last ones are open; a few bear no state, as other programs leave
/// them.
Ending endingOf(int index, int count, Random& random)
{
    if (random.chance(1))
        return {Null{}, true};
    if (random.chance(1))
        return {QString(), false};
    const bool recent = index > count - count / 12 - 4;
    const bool open = random.chance(recent ? 65 : 2);
    return {(open ? kOpen : kClosed).toString(), !open};
}

Value publishable(Random& random)
{
    constexpr std::array kMarks{QStringView(u"01 No"), QStringView(u"01 No"), QStringView(u"01 No"),
                                QStringView(u"01 Si"), QStringView(u"02 No")};
    return random.chance(5) ? Value(Null{})
                            : Value(random.pick(std::span<const QStringView>(kMarks)).toString());
}

/// The answer; an open question has "" or, from other programs, nothing at all.
Value answerOf(const Question& question, bool answered, Random& random)
{
    if (answered)
        return question.answer.toString();
    return random.chance(50) ? Value(Null{}) : Value(QString());
}

void addConsultation(BulkTable& table, int index, int count, const WrittenClient& client, Random& random)
{
    const Question& question = random.pick(questions());
    const QDate begun = dayOf(index, count);
    const QTime beginning = timeOfWork(random);
    const Ending ending = endingOf(index, count, random);
    const QDate ended = begun.addDays(random.chance(70) ? 0 : random.between(1, 9));
    const int minutes = random.between(4, 55);
    table.add({
        {u"ORDEN", static_cast<double>(index + 1)},
        {u"CLICONSULTA", client.code},
        {u"TEMA", question.subject.toString()},
        {u"PROGRAMA", QString::number(client.concepts == 0 ? -1 : random.below(client.concepts))},
        {u"FEINICIO", platform::FormatDate(begun)},
        {u"HOINICIO", platform::FormatTime(beginning)},
        {u"FEFINAL", platform::FormatDate(ended)},
        {u"HOFINAL", platform::FormatTime(beginning.addSecs(minutes * 60))},
        {u"DESCRIPCION", question.question.toString()},
        {u"SOLUCION", answerOf(question, ending.answered, random)},
        {u"TECNICO", random.pick(std::span<const QStringView>(kTechnicians)).toString()},
        {u"ESTADO", ending.state},
        {u"conpublicable", publishable(random)},
        {u"conpaginaweb", Null{}},
    });
}

QString contactOf(Random& random)
{
    return random.chance(50) ? random.pick(contactPosts()).toString() : makePerson(random);
}

struct Line
{
    QString phone;
    QStringView kind;
};

/// A fixed line and often a mobile and a fax; one in twenty is written with blanks.
std::vector<Line> linesOf(const WrittenClient& client, Random& random)
{
    std::vector<Line> lines{{makePhone(client.postalCode, false, random), u"01 Voz"}};
    if (random.chance(50))
        lines.push_back({makePhone(client.postalCode, true, random), u"04 Móvil"});
    if (random.chance(20))
        lines.push_back({makePhone(client.postalCode, false, random), u"03 Fax"});
    if (random.chance(3))
        lines.push_back({makePhone(client.postalCode, false, random), u"02 Datos"});
    if (random.chance(5))
        lines.front().phone.insert(6, u' ').insert(3, u' ');
    return lines;
}

} // namespace

void fillConsultations(platform::storage::Connection& store, const std::vector<WrittenClient>& clients,
                       Random& random)
{
    constexpr int kPerClient = 4;
    BulkTable table(store, u"CONS");
    const int count = static_cast<int>(clients.size()) * kPerClient;
    for (int index = 0; index < count; ++index) {
        // The least of two draws: early clients have been asking for longer.
        const int first = random.below(static_cast<int>(clients.size()));
        const int second = random.below(static_cast<int>(clients.size()));
        addConsultation(table, index, count, clients[static_cast<std::size_t>(std::min(first, second))],
                        random);
    }
    table.flush();
}

void fillTelephones(platform::storage::Connection& store, const Company& company,
                    const std::vector<WrittenClient>& clients, Random& random)
{
    BulkTable table(store, u"TELEFON");
    for (const WrittenClient& client : clients) {
        QStringList written;
        for (const Line& line : linesOf(client, random)) {
            if (written.contains(line.phone))
                continue;
            written.append(line.phone);
            table.add(
                {{u"TELECODIGOEMPRESA", company.number.toString()},
                 {u"TELECODIGO", client.code},
                 {u"TELETELEFONO", line.phone},
                 {u"TELEEXTENSION", random.chance(15) ? QString::number(random.between(10, 399)) : QString()},
                 {u"TELEFAX", line.kind.toString()},
                 {u"TELECONTACTO", random.chance(4) ? Value(Null{}) : Value(contactOf(random))}});
        }
    }
    table.flush();
}

} // namespace tools
