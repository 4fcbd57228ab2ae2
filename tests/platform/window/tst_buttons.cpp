// SPDX-License-Identifier: GPL-3.0-or-later

// Push buttons, small pictures that act as buttons, and pictures that take no focus.

#include "platform/window/commandbutton.h"
#include "platform/window/imagelabel.h"
#include "platform/window/picturebox.h"
#include "platform/window/textbox.h"

#include <QApplication>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;
using platform::CommandButton;
using platform::ImageLabel;
using platform::PictureBox;
using platform::TextBox;

class ButtonsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { window.reset(); }

    void buttonTakesTheFocusBeforeItsClick();
    void altKeyOfAButtonTakesTheFocusBeforeItsClick();
    void enterPressesAButtonWithTheFocus();
    void pictureBoxTakesTheFocusBeforeItsClick();
    void keysPressAPictureBox_data();
    void keysPressAPictureBox();
    void imageIsClickedWithoutTakingTheFocus();
    void imageLeftBeforeReleaseIsNotClicked();
    void rightButtonDoesNotClickAnImage();
    void mouseOverAnImageIsReported();
    void mouseOverAPictureBoxIsReported();

private:
    void moveOver(QWidget* control);

    std::unique_ptr<QWidget> window;
    TextBox* field = nullptr;
    CommandButton* button = nullptr;
    PictureBox* picture = nullptr;
    ImageLabel* image = nullptr;
    QStringList events;
};

void ButtonsTest::init()
{
    window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(window.get());
    field = new TextBox;
    button = new CommandButton;
    button->setText(u"&Grabar"_s);
    picture = new PictureBox;
    image = new ImageLabel;
    image->setText(u"logo"_s);
    for (QWidget* control : std::initializer_list<QWidget*>{field, button, picture, image})
        layout->addWidget(control);
    window->show();
    field->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    events.clear();
    connect(field, &TextBox::lostFocus, this, [this] { events.append(u"left"_s); });
    connect(button, &QAbstractButton::clicked, this, [this] { events.append(u"click"_s); });
    connect(picture, &QAbstractButton::clicked, this, [this] { events.append(u"click"_s); });
    connect(image, &ImageLabel::clicked, this, [this] { events.append(u"click"_s); });
}

void ButtonsTest::moveOver(QWidget* control)
{
    const QPoint place(2, 2);
    QMouseEvent move(QEvent::MouseMove, place, control->mapToGlobal(place), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(control, &move);
}

void ButtonsTest::buttonTakesTheFocusBeforeItsClick()
{
    QTest::mouseClick(button, Qt::LeftButton);

    QCOMPARE(events, (QStringList{u"left"_s, u"click"_s}));
}

void ButtonsTest::altKeyOfAButtonTakesTheFocusBeforeItsClick()
{
    QTest::keyClick(field, Qt::Key_G, Qt::AltModifier);

    QCOMPARE(events, (QStringList{u"left"_s, u"click"_s}));
    QVERIFY(button->hasFocus());
}

void ButtonsTest::enterPressesAButtonWithTheFocus()
{
    button->setFocus();

    QTest::keyClick(button, Qt::Key_Return);

    QCOMPARE(events, (QStringList{u"left"_s, u"click"_s}));
}

void ButtonsTest::pictureBoxTakesTheFocusBeforeItsClick()
{
    QTest::mouseClick(picture, Qt::LeftButton);

    QCOMPARE(events, (QStringList{u"left"_s, u"click"_s}));
    QVERIFY(picture->hasFocus());
}

void ButtonsTest::keysPressAPictureBox_data()
{
    QTest::addColumn<int>("key");

    QTest::newRow("Enter") << int(Qt::Key_Return);
    QTest::newRow("blank") << int(Qt::Key_Space);
}

void ButtonsTest::keysPressAPictureBox()
{
    QFETCH(int, key);
    picture->setFocus();
    events.clear();

    QTest::keyClick(picture, Qt::Key(key));

    QCOMPARE(events, QStringList{u"click"_s});
}

void ButtonsTest::imageIsClickedWithoutTakingTheFocus()
{
    QTest::mouseClick(image, Qt::LeftButton);

    QCOMPARE(events, QStringList{u"click"_s});
    QVERIFY(field->hasFocus());
}

void ButtonsTest::imageLeftBeforeReleaseIsNotClicked()
{
    QTest::mousePress(image, Qt::LeftButton);
    QTest::mouseRelease(image, Qt::LeftButton, {}, QPoint(-20, -20));

    QVERIFY(events.isEmpty());
}

void ButtonsTest::rightButtonDoesNotClickAnImage()
{
    QTest::mouseClick(image, Qt::RightButton);

    QVERIFY(events.isEmpty());
}

void ButtonsTest::mouseOverAnImageIsReported()
{
    const QSignalSpy moves(image, &ImageLabel::MouseMove);

    moveOver(image);

    QCOMPARE(moves.size(), 1);
}

void ButtonsTest::mouseOverAPictureBoxIsReported()
{
    const QSignalSpy moves(picture, &PictureBox::MouseMove);

    moveOver(picture);

    QCOMPARE(moves.size(), 1);
}

QTEST_MAIN(ButtonsTest)
#include "tst_buttons.moc"
