// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of a report: beside its file, by a path in a column, out of a column itself.
#include "platform/print/definition/read_xml.h"
#include "platform/print/output/document.h"
#include "platform/print/storefixture.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

class PicturesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void pictureBesideTheReportIsPainted();
    void pictureByThePathInAColumnIsPainted();
    void pictureOutOfAColumnIsPainted();
    void everyRecordShowsItsOwnPicture();
    void nullLeavesTheEmptyFrame();
    void damagedPictureLeavesTheEmptyFrame();
    void optionalPictureThatIsMissingLeavesNothing();
    void textIsNoPicture();

private:
    /// Page 1 at one pixel a millimetre, with a picture of 40 x 40 mm at the paper's corner for each record.
    QImage page(const QString& selection, const QString& attributes);

    QTemporaryDir m_folder;
};

namespace {

QByteArray png(QColor color)
{
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

const QString kColumn = u"expr=\"{T.FOTO}\""_s;

} // namespace

void PicturesTest::initTestCase()
{
    QImage blue(8, 8, QImage::Format_RGB32);
    blue.fill(Qt::blue);
    QVERIFY(blue.save(m_folder.filePath(u"azul.png"_s)));
    const QString path = m_folder.filePath(u"T.MDB"_s);
    givenTable(path, u"T"_s, {u"COD"_s, u"FOTO+"_s},
               {{u"ruta"_s, u"azul.png"_s},
                {u"rojo"_s, u"-"_s},
                {u"verde"_s, u"-"_s},
                {u"roto"_s, u"-"_s},
                {u"nulo"_s, Null{}}});
    sqlite3* database = nullptr;
    QCOMPARE(sqlite3_open(path.toUtf8().constData(), &database), SQLITE_OK);
    const QByteArray sql = "UPDATE T SET FOTO = x'" + png(Qt::red).toHex() + "' WHERE rowid = 2;" +
                           "UPDATE T SET FOTO = x'" + png(Qt::green).toHex() + "' WHERE rowid = 3;" +
                           "UPDATE T SET FOTO = x'" + png(Qt::red).left(40).toHex() + "' WHERE rowid = 4";
    const int code = sqlite3_exec(database, sql.constData(), nullptr, nullptr, nullptr);
    sqlite3_close(database);
    QCOMPARE(code, SQLITE_OK);
}

QImage PicturesTest::page(const QString& selection, const QString& attributes)
{
    const QString xml =
        u"<informe version=\"1\" nombre=\"P\"><pagina papel=\"100 x 130\" margenes=\"0 0 0 0\"/>"
        "<tabla n=\"0\" alias=\"T\" fichero=\"T.MDB\"/><seleccion><![CDATA[%1]]></seleccion>"
        "<seccion tipo=\"detalle\" alto=\"40\"><imagen x=\"0\" y=\"0\" ancho=\"40\" alto=\"40\" "
        "%2/></seccion>"
        "</informe>"_s.arg(selection, attributes);
    ReadReport read = readReport(xml.toUtf8());
    if (!read.report)
        qFatal("%s", qPrintable(read.faults.front().text));
    Document document(std::make_unique<Report>(std::move(*read.report)), m_folder.path(),
                      QDateTime(QDate(2024, 3, 5), QTime(10, 0)));
    document.start({m_folder.filePath(u"T.MDB"_s)}, {});
    document.makeAllPages();
    QImage image(100, 130, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(1 / kUnits, 1 / kUnits);
    document.paint(painter, 0);
    return image;
}

void PicturesTest::pictureBesideTheReportIsPainted()
{
    QCOMPARE(page(u"{T.COD} = \"nulo\""_s, u"fichero=\"azul.png\""_s).pixelColor(20, 20), QColor(Qt::blue));
}

void PicturesTest::pictureByThePathInAColumnIsPainted()
{
    QCOMPARE(page(u"{T.COD} = \"ruta\""_s, kColumn).pixelColor(20, 20), QColor(Qt::blue));
    QCOMPARE(page(u"{T.COD} = \"ruta\""_s, u"expr=\"'azul' &amp; '.png'\""_s).pixelColor(20, 20),
             QColor(Qt::blue));
}

void PicturesTest::pictureOutOfAColumnIsPainted()
{
    QCOMPARE(page(u"{T.COD} = \"rojo\""_s, kColumn).pixelColor(20, 20), QColor(Qt::red));
}

void PicturesTest::everyRecordShowsItsOwnPicture()
{
    const QImage image = page(u"{T.COD} in [\"ruta\", \"rojo\", \"verde\"]"_s, kColumn);

    QCOMPARE(image.pixelColor(20, 20), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(20, 60), QColor(Qt::red));
    QCOMPARE(image.pixelColor(20, 100), QColor(Qt::green));
}

void PicturesTest::nullLeavesTheEmptyFrame()
{
    const QImage image = page(u"{T.COD} = \"nulo\""_s, kColumn);

    QCOMPARE(image.pixelColor(20, 20), QColor(Qt::white));
    QVERIFY(image.pixelColor(20, 0) != QColor(Qt::white));
}

void PicturesTest::damagedPictureLeavesTheEmptyFrame()
{
    const QImage image = page(u"{T.COD} = \"roto\""_s, kColumn);

    QCOMPARE(image.pixelColor(20, 20), QColor(Qt::white));
    QVERIFY(image.pixelColor(20, 0) != QColor(Qt::white));
}

void PicturesTest::optionalPictureThatIsMissingLeavesNothing()
{
    const QImage image = page(u"{T.COD} = \"nulo\""_s, kColumn + u" opcional=\"si\""_s);

    QCOMPARE(image.pixelColor(20, 0), QColor(Qt::white));
}

void PicturesTest::textIsNoPicture()
{
    QVERIFY(!Pictures::isPicture("azul.png"));
    QVERIFY(!Pictures::isPicture({}));
    QVERIFY(Pictures::isPicture(png(Qt::red)));
}

QTEST_MAIN(PicturesTest)
#include "tst_pictures.moc"
