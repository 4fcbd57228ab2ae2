// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A tree of nodes with keys. Nothing is selected until the user or code selects it.

#include <QHash>
#include <QIcon>
#include <QTreeWidget>

namespace platform {

class TreeView : public QTreeWidget
{
    Q_OBJECT

public:
    explicit TreeView(QWidget* parent = nullptr);

    /// Picture of an image index, used by nodes added before and after.
    void setImage(int index, const QIcon& icon);

    /// Adds a node as the last child of the node with key `relative`, or as a root for "". Unknown relative:
    /// 35601; a key that is there already: 35602; a key of digits only: 35603. An empty key gives a node
    /// without one.
    void nodesAdd(const QString& relative, const QString& key, const QString& text, int image);
    /// Removes all nodes; none selected. Raises nothing.
    void nodesClear();
    [[nodiscard]] int nodesCount() const { return m_nodesCount; }

    /// The selected node; without one: Failure 91.
    [[nodiscard]] QString selectedText() const;
    [[nodiscard]] QString selectedKey() const;
    [[nodiscard]] int selectedImage() const;
    /// Key of the selected node's parent, "" for a root.
    [[nodiscard]] QString selectedParentKey() const;

    /// A node by its key; unknown: Failure 35601.
    [[nodiscard]] QString nodeText(const QString& key) const;
    void setNodeText(const QString& key, const QString& text);
    [[nodiscard]] int nodeImage(const QString& key) const;
    void setNodeImage(const QString& key, int image);
    /// Selects a node; raises no nodeClick.
    void selectNode(const QString& key);
    void setNodeExpanded(const QString& key, bool expanded);
    /// Opens the nodes above it and brings it into view.
    void ensureNodeVisible(const QString& key);

Q_SIGNALS:
    /// The user clicked the node or pressed Enter or blank on it.
    void nodeClick(const QString& key, int image);
    /// The user double-clicked the selected node.
    void doubleClickedNode();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] QTreeWidgetItem* requireNode(const QString& key) const;
    [[nodiscard]] QTreeWidgetItem* requireSelected() const;
    void reportClick(QTreeWidgetItem* node);

    QHash<QString, QTreeWidgetItem*> m_nodes;
    QHash<int, QIcon> m_images;
    int m_nodesCount = 0;
};

} // namespace platform
