// SPDX-License-Identifier: GPL-3.0-or-later

// Message boxes, style and icons.

#include "platform/system/messagebox.h"
#include "platform/window/appearance.h"
#include "platform/window/flexgrid.h"
#include "platform/window/icons.h"
#include "platform/window/treeview.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QProxyStyle>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using platform::Icon;

namespace {

/// What a box looked like while it stood.
struct SeenBox
{
    QString title;
    QString text;
    Qt::TextFormat format = Qt::AutoText;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QStringList buttons;
    QWidget* parent = nullptr;
};

/// Shows a message, looks at its box and presses its button.
SeenBox show(const platform::Message& message)
{
    SeenBox seen;
    QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        seen = {box->windowTitle(), box->text(), box->textFormat(), box->icon(), {}, box->parentWidget()};
        for (const QAbstractButton* button : box->buttons())
            seen.buttons.append(button->text());
        QTest::mouseClick(box->buttons().first(), Qt::LeftButton);
    });
    platform::messageBox(message);
    return seen;
}

} // namespace

class AppearanceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void messageIsPlainText();
    void messageHasOneSpanishButton();
    void messageWithoutATitleBearsTheProgramsName();
    void messageKeepsItsOwnTitleAndIcon();
    void messageStandsOverTheActiveWindow();
    void styleIsFusion();
    void framedControlWithTheFocusHasAMarkedFrame_data();
    void framedControlWithTheFocusHasAMarkedFrame();
    void everyIconHasAPicture();
    void applicationIconIsTheProgramsOwn();
    void untintedIconLooksTheSameWhenSelected();
};

void AppearanceTest::initTestCase()
{
    QApplication::setApplicationDisplayName(u"Programa"_s);
    platform::installAppearance();
    platform::installMessageBox();
}

void AppearanceTest::messageIsPlainText()
{
    const SeenBox seen = show({.text = u"<b>no</b>"_s, .title = {}, .icon = platform::MessageIcon::None});

    QCOMPARE(seen.text, u"<b>no</b>"_s);
    QCOMPARE(seen.format, Qt::PlainText);
}

void AppearanceTest::messageHasOneSpanishButton()
{
    const SeenBox seen = show({.text = u"x"_s, .title = {}, .icon = platform::MessageIcon::None});

    QCOMPARE(seen.buttons, QStringList{u"Aceptar"_s});
    QCOMPARE(seen.icon, QMessageBox::NoIcon);
}

void AppearanceTest::messageWithoutATitleBearsTheProgramsName()
{
    const SeenBox seen = show({.text = u"x"_s, .title = {}, .icon = platform::MessageIcon::None});

    QCOMPARE(seen.title, u"Programa"_s);
}

void AppearanceTest::messageKeepsItsOwnTitleAndIcon()
{
    const SeenBox seen =
        show({.text = u"x"_s, .title = u"Aviso"_s, .icon = platform::MessageIcon::Information});

    QCOMPARE(seen.title, u"Aviso"_s);
    QCOMPARE(seen.icon, QMessageBox::Information);
}

void AppearanceTest::messageStandsOverTheActiveWindow()
{
    QWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    const SeenBox seen = show({.text = u"x"_s, .title = {}, .icon = platform::MessageIcon::None});

    QCOMPARE(seen.parent, &window);
}

void AppearanceTest::styleIsFusion()
{
    const auto* style = qobject_cast<QProxyStyle*>(QApplication::style());
    QVERIFY(style);
    QCOMPARE(style->baseStyle()->name().toLower(), u"fusion"_s);
}

void AppearanceTest::framedControlWithTheFocusHasAMarkedFrame_data()
{
    QTest::addColumn<bool>("isTree");

    QTest::newRow("a grid on its heading") << false;
    QTest::newRow("a tree without a chosen node") << true;
}

void AppearanceTest::framedControlWithTheFocusHasAMarkedFrame()
{
    QFETCH(const bool, isTree);
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    QFrame* control = nullptr;
    if (isTree) {
        control = new platform::TreeView;
    } else {
        auto* grid = new platform::FlexGrid;
        grid->setRow(0);
        control = grid;
    }
    auto* other = new QLineEdit;
    layout->addWidget(control);
    layout->addWidget(other);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const auto corner = [&] { return control->grab().toImage().pixelColor(0, 0); };
    other->setFocus();
    const QColor quiet = corner();

    QTest::keyClick(other, Qt::Key_Tab);

    QVERIFY(control->hasFocus());
    QCOMPARE(corner(), control->palette().highlight().color());
    QVERIFY(quiet != corner());
}

void AppearanceTest::everyIconHasAPicture()
{
    for (int name = 0; name <= static_cast<int>(Icon::ApplicationLit); ++name) {
        const QPixmap picture = platform::icon(static_cast<Icon>(name)).pixmap(22, 22);
        QVERIFY2(!picture.isNull(), qPrintable(QString::number(name)));
    }
}

void AppearanceTest::applicationIconIsTheProgramsOwn()
{
    QPixmap red(32, 32);
    red.fill(Qt::red);
    QApplication::setWindowIcon(QIcon(red));

    const QImage shown = platform::icon(Icon::Application).pixmap(32, 32).toImage();

    QApplication::setWindowIcon({});
    QCOMPARE(shown.pixelColor(16, 16), QColor(Qt::red));
}

void AppearanceTest::untintedIconLooksTheSameWhenSelected()
{
    const QIcon steady = platform::untinted(platform::icon(Icon::Note));

    QCOMPARE(steady.pixmap(QSize(16, 16), QIcon::Selected).toImage(), steady.pixmap(QSize(16, 16)).toImage());
}

QTEST_MAIN(AppearanceTest)
#include "tst_appearance.moc"
