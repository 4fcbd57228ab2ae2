// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A window of the program. One object is one load: make it, show it, and drop it once it is unloaded. Neither
// Esc nor Enter does anything by itself.

#include <QDialog>

namespace platform {

class FormKeys;

class Form : public QDialog
{
    Q_OBJECT

public:
    explicit Form(QWidget* parent = nullptr);
    /// What the controls still tell while they go, such as the end of an edit, reaches the form no more.
    ~Form() override;

    /// Runs `onLoad` once. The show calls do it by themselves.
    void load();
    /// Runs `onUnload` once, if the form was loaded, and takes the window off the screen. The window's frame
    /// does the same.
    void unload();
    [[nodiscard]] bool isLoaded() const { return m_state == State::Loaded; }

    /// Shows the form and returns when it is unloaded or hidden; its parents wait. Visible already: Failure
    /// 400.
    void showModal();
    /// Shows the form and returns at once. While a modal form is up: Failure 401. Comes to the front if
    /// visible.
    void showModeless();

    /// Turns the form-level view of keys on; the same object at each call.
    FormKeys* watchKeys();

    void reject() override;

Q_SIGNALS:
    /// The unload steps have run.
    void unloaded();

protected:
    /// Load steps, run before the window is seen.
    virtual void onLoad() {}
    /// Steps at each change of size, the first one included.
    virtual void onResize() {}
    /// Run once, when the window is up for the first time and has its focus.
    virtual void onFirstShown() {}
    virtual void onUnload() {}

    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Larger type than the form was drawn for makes the window larger, up to the screen.
    void growWithFont();

    enum class State { Fresh, Loaded, Unloaded };

    State m_state = State::Fresh;
    bool m_shownOnce = false;
    FormKeys* m_keys = nullptr;
};

} // namespace platform
