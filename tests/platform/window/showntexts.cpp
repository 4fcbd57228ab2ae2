// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/showntexts.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QMetaProperty>
#include <QRegularExpression>
#include <QTabBar>
#include <QTextDocument>
#include <QWidget>

#include <algorithm>

namespace testsupport {

namespace {

constexpr std::array kProperties{"text",      "title",     "windowTitle",     "toolTip",
                                 "statusTip", "whatsThis", "accessibleName",  "accessibleDescription",
                                 "prefix",    "suffix",    "placeholderText", "specialValueText"};
constexpr int kRowsRead = 50;

class Collector
{
public:
    QSet<QString> texts;

    void add(QString text)
    {
        if (Qt::mightBeRichText(text)) {
            QTextDocument document;
            document.setHtml(text);
            text = document.toPlainText();
        }
        text = text.remove(u'&').trimmed();
        static const QRegularExpression word(QStringLiteral("\\p{L}\\p{L}"));
        if (word.match(text).hasMatch())
            texts.insert(text);
    }

    void addWidget(QWidget* widget)
    {
        for (const char* property : kProperties)
            add(widget->property(property).toString());
        for (const QAction* action : widget->actions())
            addAction(action);
        if (const auto* combo = qobject_cast<QComboBox*>(widget))
            addRows(combo->model(), combo->rootModelIndex());
        if (const auto* tabs = qobject_cast<QTabBar*>(widget))
            addTabs(tabs);
        if (const auto* view = qobject_cast<QAbstractItemView*>(widget))
            addRows(view->model(), view->rootIndex());
        addAccessible(widget);
    }

private:
    void addAction(const QAction* action)
    {
        add(action->text());
        add(action->toolTip());
        add(action->shortcut().toString(QKeySequence::NativeText));
    }

    void addTabs(const QTabBar* tabs)
    {
        for (int index = 0; index < tabs->count(); ++index) {
            add(tabs->tabText(index));
            add(tabs->tabToolTip(index));
        }
    }

    void addRows(const QAbstractItemModel* model, const QModelIndex& root)
    {
        if (model == nullptr)
            return;
        for (int column = 0; column < model->columnCount(root); ++column) {
            add(model->headerData(column, Qt::Horizontal).toString());
            for (int row = 0; row < std::min(kRowsRead, model->rowCount(root)); ++row) {
                for (const int role : {Qt::DisplayRole, Qt::ToolTipRole, Qt::AccessibleTextRole})
                    add(model->index(row, column, root).data(role).toString());
            }
        }
    }

    void addAccessible(QWidget* widget)
    {
        QAccessibleInterface* object = QAccessible::queryAccessibleInterface(widget);
        if (object == nullptr)
            return;
        for (const QAccessible::Text kind :
             {QAccessible::Name, QAccessible::Description, QAccessible::Help, QAccessible::Accelerator})
            add(object->text(kind));
        if (QAccessibleActionInterface* actions = object->actionInterface()) {
            for (const QString& name : actions->actionNames()) {
                add(actions->localizedActionName(name));
                add(actions->localizedActionDescription(name));
            }
        }
    }
};

} // namespace

QSet<QString> shownTexts(QWidget* window)
{
    Collector collector;
    collector.addWidget(window);
    for (QWidget* widget : window->findChildren<QWidget*>())
        collector.addWidget(widget);
    return collector.texts;
}

} // namespace testsupport
