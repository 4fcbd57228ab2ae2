// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The preview of a report: a window of its own that shows pages while the rest are still being made.

#include "platform/print/output/document.h"
#include "platform/print/output/printing.h"
#include "platform/print/slices.h"

#include <QMainWindow>

#include <memory>
#include <vector>

class QAction;
class QComboBox;
class QLabel;
class QScrollArea;
class QSpinBox;

namespace platform::print {

class PageView;

struct PreviewRequest
{
    QString title;
    QRect place{50, 50, 600, 600}; ///< pixels
    bool navigation = true;
    bool cancel = true;
    bool print = true;
    bool printSetup = true;
    bool exports = true;
    bool zoom = true;
    bool progress = true;
};

class PreviewWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Goes on with the document, which has begun, in slices of the event loop. The window deletes itself
    /// when it is closed; what is still being read is let go then.
    PreviewWindow(std::shared_ptr<Document> document, const PreviewRequest& request,
                  const PrintRequest& printing);
    ~PreviewWindow() override;

    void goTo(int page);
    /// Stops what is under way: the reading for good, the making of pages (the finished ones stay), prints
    /// and exports.
    void cancelRun();
    [[nodiscard]] bool wasCancelled() const;
    /// Prints every page; says in the status line why it can't.
    void printNow();
    /// Runs a print that was begun to its end.
    void finishPrinting();
    /// Begins to write a PDF or, with a name that ends in ".csv", the records. False when the file can't be
    /// written.
    bool exportTo(const QString& path);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildTools(const PreviewRequest& request);
    void buildZoom();
    QAction* tool(const QIcon& icon, const QString& text, const QString& name, void (PreviewWindow::*run)());
    void goFirst() { goTo(0); }
    void goPrevious();
    void goNext();
    void goLast();
    void choosePrinter();
    void chooseExport();
    void applyZoom(int index);
    void zoomBy(double factor);
    void work();
    void follow();
    void addTask(std::unique_ptr<OutputTask> task);
    void showState();
    [[nodiscard]] QString stateText() const;
    [[nodiscard]] QString notesText() const;
    [[nodiscard]] bool isRunning() const;
    bool handleKey(QKeyEvent* event);

    std::shared_ptr<Document> m_document;
    PrintRequest m_printing;
    std::vector<std::unique_ptr<OutputTask>> m_tasks; ///< prints and exports, the last one begun at the end
    PageView* m_view = nullptr;
    QScrollArea* m_area = nullptr;
    QSpinBox* m_pageBox = nullptr;
    QLabel* m_state = nullptr;
    QLabel* m_notes = nullptr;
    QComboBox* m_zoom = nullptr;
    QList<QAction*> m_navigation;
    QAction* m_cancel = nullptr;
    QString m_message; ///< why the last command couldn't be done
    SlicedWork m_slices{[this] { work(); }};
    bool m_canPrint = false;
    bool m_showsProgress = true;
    bool m_cancelled = false;
    bool m_hasPages = false;
    bool m_isComplete = false;
};

} // namespace platform::print
