// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/form.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/window/formhelpers.h"
#include "platform/window/formkeys.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QTimer>

namespace platform {

namespace {

/// Width of a digit in the type that the sizes of the form files are made for, in pixels.
constexpr double kFormDigitWidth = 8;

} // namespace

Form::Form(QWidget* parent)
    : QDialog(parent)
{
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMinMaxButtonsHint, true);
}

Form::~Form()
{
    for (QObject* control : findChildren<QObject*>())
        disconnect(control, nullptr, this, nullptr);
}

void Form::load()
{
    if (m_state != State::Fresh)
        return;
    m_state = State::Loaded;
    growWithFont();
    onLoad();
}

void Form::unload()
{
    const bool wasLoaded = m_state == State::Loaded;
    m_state = State::Unloaded;
    const QPointer<Form> self = this;
    if (wasLoaded)
        onUnload();
    if (!self)
        return;
    if (isVisible())
        QDialog::done(QDialog::Rejected);
    if (self && wasLoaded)
        Q_EMIT unloaded();
}

void Form::showModal()
{
    if (isVisible())
        throw Failure(kFormAlreadyShown, QStringLiteral("the form is shown already"));
    load();
    if (m_state == State::Loaded)
        execModal(this);
}

void Form::showModeless()
{
    if (!isVisible() && QApplication::activeModalWidget())
        throw Failure(kModelessOverModal, QStringLiteral("a modal form is up"));
    load();
    if (m_state != State::Loaded)
        return;
    show();
    raise();
    activateWindow();
}

FormKeys* Form::watchKeys()
{
    if (!m_keys)
        m_keys = new FormKeys(this);
    return m_keys;
}

void Form::growWithFont()
{
    const double share = fontMetrics().horizontalAdvance(QLatin1Char('0')) / kFormDigitWidth;
    if (share > 1)
        resize((QSizeF(size()) * share).toSize().boundedTo(screen()->availableSize()));
}

void Form::reject()
{
    unload();
}

void Form::closeEvent(QCloseEvent* event)
{
    unload();
    event->accept();
}

void Form::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    onResize();
}

void Form::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (m_shownOnce || event->spontaneous())
        return;
    m_shownOnce = true;
    QTimer::singleShot(0, this, [this] {
        if (isVisible())
            onFirstShown();
    });
}

void Form::keyPressEvent(QKeyEvent* event)
{
    // Unlike QDialog: Esc doesn't close and Enter presses no button.
    event->ignore();
}

} // namespace platform
