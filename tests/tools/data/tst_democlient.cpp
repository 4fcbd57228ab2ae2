// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/catalogue.h"
#include "tools/data/democlient.h"
#include "tools/data/identifiers.h"
#include "tools/data/places.h"
#include "tools/data/random.h"
#include "tools/data/wordlists.h"

#include <QSet>
#include <QtTest>

using namespace tools;

namespace {

constexpr int kMany = 2000;

/// The same number with its check character made anew; the kind is read from the number itself.
QString withRightCheck(const QString& taxId)
{
    if (taxId.front().isDigit())
        return nif(taxId.left(8).toInt());
    return cif(taxId.front(), taxId.mid(1, 7).toInt());
}

} // namespace

class DemoClientTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theGeneratorGivesTheSameNumbersEverywhere();
    void streamsOfOneSeedDiffer();
    void numbersStayWithinTheirLimits();
    void theSameDrawsGiveTheSameClient();
    void everyTaxNumberHasItsCheckCharacter();
    void codesHaveTenDigitsAndAscend();
    void namesFitTheirColumn();
    void theProvinceIsThatOfThePostalCode();
    void telephonesHaveNineDigitsOfTheProvince();
    void mobilesBeginWithSix();
    void thereAreManyTowns();
    void everyProvinceHasATown();
    void orderIsPutToTheTestByNames();
    void questionsFitTheirColumns();
    void articlesFitTheirColumns();
    void everyArticleHasAFamily();
};

void DemoClientTest::theGeneratorGivesTheSameNumbersEverywhere()
{
    Random random(1, 0);

    const QList<quint64> drawn{random.next(), random.next(), random.next()};

    QCOMPARE(drawn, (QList<quint64>{0x17DAF0019666393ULL, 0xD9E484272F675712ULL, 0x29BD10DB6BCD372FULL}));
}

void DemoClientTest::streamsOfOneSeedDiffer()
{
    Random first(1, 0);
    Random second(1, 1);

    QVERIFY(first.next() != second.next());
}

void DemoClientTest::numbersStayWithinTheirLimits()
{
    Random random(7, 0);
    QSet<int> seen;

    for (int i = 0; i < kMany; ++i)
        seen.insert(random.between(3, 6));

    QCOMPARE(seen, (QSet<int>{3, 4, 5, 6}));
    QCOMPARE(random.below(0), 0);
}

void DemoClientTest::theSameDrawsGiveTheSameClient()
{
    Random one(5, 2);
    Random other(5, 2);

    const DemoClient first = makeClient(12, one);
    const DemoClient second = makeClient(12, other);

    QCOMPARE(first.name, second.name);
    QCOMPARE(first.taxId, second.taxId);
    QCOMPARE(first.address.street, second.address.street);
}

void DemoClientTest::everyTaxNumberHasItsCheckCharacter()
{
    Random random(1, 0);
    for (int i = 1; i <= kMany; ++i) {
        const DemoClient client = makeClient(i, random);
        QCOMPARE(client.taxId, withRightCheck(client.taxId));
    }
}

void DemoClientTest::codesHaveTenDigitsAndAscend()
{
    Random random(1, 0);
    QString before;
    for (int i = 1; i <= kMany; ++i) {
        const DemoClient client = makeClient(i, random);
        QCOMPARE(client.code.size(), 10);
        QVERIFY(client.code > before);
        before = client.code;
    }
}

void DemoClientTest::namesFitTheirColumn()
{
    Random random(1, 0);
    for (int i = 1; i <= kMany; ++i) {
        const DemoClient client = makeClient(i, random);
        QVERIFY2(!client.name.isEmpty() && client.name.size() <= 35, qUtf8Printable(client.name));
        QVERIFY2(client.address.street.size() <= 35, qUtf8Printable(client.address.street));
    }
}

void DemoClientTest::theProvinceIsThatOfThePostalCode()
{
    Random random(1, 0);
    for (int i = 0; i < kMany; ++i) {
        const Address address = makeAddress(random);
        QCOMPARE(address.postalCode.size(), 5);
        QCOMPARE(address.province, provinceOf(address.postalCode.toInt()).name.toString());
    }
}

void DemoClientTest::telephonesHaveNineDigitsOfTheProvince()
{
    Random random(1, 0);

    const QString phone = makePhone(QStringLiteral("50001"), false, random);

    QCOMPARE(phone.size(), 9);
    QVERIFY2(phone.startsWith(u"976"), qUtf8Printable(phone));
}

void DemoClientTest::mobilesBeginWithSix()
{
    Random random(1, 0);

    QVERIFY(makePhone(QStringLiteral("50001"), true, random).startsWith(u'6'));
}

void DemoClientTest::thereAreManyTowns()
{
    QSet<QString> names;
    for (const Town& town : towns()) {
        QVERIFY2(town.firstPostalCode >= 1000 && town.lastPostalCode < 53000,
                 qUtf8Printable(town.name.toString()));
        QVERIFY(town.firstPostalCode <= town.lastPostalCode);
        QCOMPARE(town.firstPostalCode / 1000, town.lastPostalCode / 1000);
        names.insert(town.name.toString());
    }

    QCOMPARE(names.size(), qsizetype(towns().size()));
    QVERIFY(names.size() >= 120);
}

void DemoClientTest::everyProvinceHasATown()
{
    QSet<int> numbers;
    for (const Town& town : towns())
        numbers.insert(town.firstPostalCode / 1000);

    QCOMPARE(numbers.size(), 52);
    QCOMPARE(provinces().size(), 52U);
}

void DemoClientTest::orderIsPutToTheTestByNames()
{
    QSet<QString> words;
    for (const QStringView name : surnames())
        words.insert(name.toString());

    for (const QString& name :
         {QStringLiteral("Llorens"), QStringLiteral("Chacón"), QStringLiteral("Ñíguez")})
        QVERIFY2(words.contains(name), qUtf8Printable(name));
}

void DemoClientTest::questionsFitTheirColumns()
{
    for (const Question& question : questions())
        QVERIFY2(question.subject.size() <= 35, qUtf8Printable(question.subject.toString()));
}

void DemoClientTest::articlesFitTheirColumns()
{
    QSet<QString> codes;
    for (const Article& article : articles()) {
        QVERIFY2(article.code.size() <= 10, qUtf8Printable(article.code.toString()));
        QVERIFY2(article.description.size() <= 50, qUtf8Printable(article.description.toString()));
        codes.insert(article.code.toString());
    }

    QCOMPARE(codes.size(), qsizetype(articles().size()));
}

void DemoClientTest::everyArticleHasAFamily()
{
    for (const Article& article : articles())
        QCOMPARE(familyOf(article.family).code.toString(), article.family.toString());
}

QTEST_GUILESS_MAIN(DemoClientTest)
#include "tst_democlient.moc"
