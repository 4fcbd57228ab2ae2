// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/treeview.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/window/icons.h"
#include "platform/window/spacing.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>

#include <algorithm>

namespace platform {

namespace {

constexpr int kKeyRole = Qt::UserRole;
constexpr int kImageRole = Qt::UserRole + 1;

bool isAllDigits(const QString& key)
{
    return !key.isEmpty() && std::all_of(key.begin(), key.end(), [](QChar c) {
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    });
}

QString keyOf(const QTreeWidgetItem* node)
{
    return node ? node->data(0, kKeyRole).toString() : QString();
}

int imageOf(const QTreeWidgetItem* node)
{
    return node->data(0, kImageRole).toInt();
}

} // namespace

TreeView::TreeView(QWidget* parent)
    : QTreeWidget(parent)
{
    setColumnCount(1);
    setHeaderHidden(true);
    setHeaderLabel({}); // else Qt calls the one column "1"
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformRowHeights(true);
    setIndentation(kTreeStep);
    connect(this, &QTreeWidget::itemClicked, this, &TreeView::reportClick);
}

void TreeView::setImage(int index, const QIcon& icon)
{
    const QIcon steady = untinted(icon);
    m_images.insert(index, steady);
    for (QTreeWidgetItem* node : std::as_const(m_nodes)) {
        if (imageOf(node) == index)
            node->setIcon(0, steady);
    }
}

void TreeView::nodesAdd(const QString& relative, const QString& key, const QString& text, int image)
{
    if (isAllDigits(key))
        throw Failure(kTreeKeyInvalid, key);
    if (m_nodes.contains(key))
        throw Failure(kTreeKeyNotUnique, key);
    QTreeWidgetItem* parent = relative.isEmpty() ? invisibleRootItem() : requireNode(relative);
    auto* node = new QTreeWidgetItem(parent, {text});
    node->setData(0, kKeyRole, key);
    node->setData(0, kImageRole, image);
    node->setIcon(0, m_images.value(image));
    node->setToolTip(0, text);
    if (!key.isEmpty())
        m_nodes.insert(key, node);
    ++m_nodesCount;
}

void TreeView::nodesClear()
{
    const QSignalBlocker blocker(this);
    m_nodes.clear();
    m_nodesCount = 0;
    QTreeWidget::clear();
}

QString TreeView::selectedText() const
{
    return requireSelected()->text(0);
}

QString TreeView::selectedKey() const
{
    return keyOf(requireSelected());
}

int TreeView::selectedImage() const
{
    return imageOf(requireSelected());
}

QString TreeView::selectedParentKey() const
{
    return keyOf(requireSelected()->parent());
}

QString TreeView::nodeText(const QString& key) const
{
    return requireNode(key)->text(0);
}

void TreeView::setNodeText(const QString& key, const QString& text)
{
    requireNode(key)->setText(0, text);
}

int TreeView::nodeImage(const QString& key) const
{
    return imageOf(requireNode(key));
}

void TreeView::setNodeImage(const QString& key, int image)
{
    QTreeWidgetItem* node = requireNode(key);
    node->setData(0, kImageRole, image);
    node->setIcon(0, m_images.value(image));
}

void TreeView::selectNode(const QString& key)
{
    setCurrentItem(requireNode(key));
}

void TreeView::setNodeExpanded(const QString& key, bool expanded)
{
    requireNode(key)->setExpanded(expanded);
}

void TreeView::ensureNodeVisible(const QString& key)
{
    QTreeWidgetItem* node = requireNode(key);
    for (QTreeWidgetItem* above = node->parent(); above; above = above->parent())
        above->setExpanded(true);
    scrollToItem(node);
}

void TreeView::focusInEvent(QFocusEvent* event)
{
    // Not the item view's own: that would select the first node.
    QAbstractScrollArea::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
    viewport()->update();
}

void TreeView::keyPressEvent(QKeyEvent* event)
{
    const bool presses =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (presses && currentItem())
        reportClick(currentItem());
    else
        QTreeWidget::keyPressEvent(event);
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeWidget::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && currentItem())
        Q_EMIT doubleClickedNode();
}

QTreeWidgetItem* TreeView::requireNode(const QString& key) const
{
    QTreeWidgetItem* node = m_nodes.value(key);
    if (!node)
        throw Failure(kTreeNoSuchKey, key);
    return node;
}

QTreeWidgetItem* TreeView::requireSelected() const
{
    QTreeWidgetItem* node = currentItem();
    if (!node)
        throw Failure(kObjectNotSet, QStringLiteral("no node is selected"));
    return node;
}

void TreeView::reportClick(QTreeWidgetItem* node)
{
    Q_EMIT nodeClick(keyOf(node), imageOf(node));
}

} // namespace platform
