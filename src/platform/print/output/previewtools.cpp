// SPDX-License-Identifier: GPL-3.0-or-later
// The preview's tool bar. Only what the caller asked for is there; a group tree, drill-down, close, search
// and refresh never are.
#include "platform/print/output/pageview.h"
#include "platform/print/output/preview.h"
#include "platform/window/icons.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QSpinBox>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

constexpr int kFitWidth = -1;
constexpr int kFitPage = -2;

QToolBar* toolBarOf(QMainWindow* window)
{
    return window->findChild<QToolBar*>(u"herramientas"_s);
}

} // namespace

QAction* PreviewWindow::tool(const QIcon& icon, const QString& text, const QString& name,
                             void (PreviewWindow::*run)())
{
    QToolBar* bar = toolBarOf(this);
    QAction* action = bar->addAction(icon, text);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, run);
    QWidget* button = bar->widgetForAction(action);
    button->setAccessibleName(text);
    button->setFocusPolicy(Qt::TabFocus);
    return action;
}

void PreviewWindow::buildTools(const PreviewRequest& request)
{
    QToolBar* bar = addToolBar(u"Herramientas"_s);
    bar->setObjectName(u"herramientas"_s);
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    if (request.navigation) {
        m_navigation +=
            tool(icon(Icon::FirstPage), u"Primera página"_s, u"primera"_s, &PreviewWindow::goFirst);
        m_navigation +=
            tool(icon(Icon::PreviousPage), u"Página anterior"_s, u"anterior"_s, &PreviewWindow::goPrevious);
        m_pageBox = new QSpinBox(bar);
        m_pageBox->setObjectName(u"pagina"_s);
        m_pageBox->setAccessibleName(u"Ir a la página"_s);
        m_pageBox->setMinimum(1);
        m_pageBox->setKeyboardTracking(false);
        connect(m_pageBox, &QSpinBox::valueChanged, this, [this](int page) { goTo(page - 1); });
        bar->addWidget(m_pageBox);
        m_navigation +=
            tool(icon(Icon::NextPage), u"Página siguiente"_s, u"siguiente"_s, &PreviewWindow::goNext);
        m_navigation += tool(icon(Icon::LastPage), u"Última página"_s, u"ultima"_s, &PreviewWindow::goLast);
        bar->addSeparator();
    }
    if (request.cancel)
        m_cancel = tool(icon(Icon::Stop), u"Cancelar"_s, u"cancelar"_s, &PreviewWindow::cancelRun);
    if (request.print)
        tool(icon(Icon::Print), u"Imprimir"_s, u"imprimir"_s, &PreviewWindow::printNow);
    if (request.printSetup)
        tool(icon(Icon::Printer), u"Configurar impresora"_s, u"configurar"_s, &PreviewWindow::choosePrinter);
    if (request.exports)
        tool(icon(Icon::Export), u"Exportar"_s, u"exportar"_s, &PreviewWindow::chooseExport);
    if (request.zoom)
        buildZoom();
}

void PreviewWindow::buildZoom()
{
    QToolBar* bar = toolBarOf(this);
    m_zoom = new QComboBox(bar);
    m_zoom->setObjectName(u"zoom"_s);
    m_zoom->setAccessibleName(u"Zoom"_s);
    m_zoom->view()->setAccessibleName(m_zoom->accessibleName());
    m_zoom->setEditable(true);
    m_zoom->lineEdit()->setReadOnly(true);
    m_zoom->lineEdit()->setAccessibleName(m_zoom->accessibleName());
    for (const int percent : {25, 50, 75, 100, 125, 150, 200, 300, 400})
        m_zoom->addItem(u"%1 %"_s.arg(percent), percent);
    m_zoom->addItem(u"Ancho de página"_s, kFitWidth);
    m_zoom->addItem(u"Página entera"_s, kFitPage);
    m_zoom->setCurrentIndex(m_zoom->findData(100));
    connect(m_zoom, &QComboBox::activated, this, &PreviewWindow::applyZoom);
    bar->addWidget(m_zoom);
}

void PreviewWindow::applyZoom(int index)
{
    const int percent = m_zoom->itemData(index).toInt();
    const QSize room = m_area->viewport()->size();
    if (percent == kFitWidth)
        m_view->setZoom(m_view->zoomForWidth(room.width()));
    else if (percent == kFitPage)
        m_view->setZoom(m_view->zoomForSize(room));
    else
        m_view->setZoom(percent / 100.0);
}

} // namespace platform::print
