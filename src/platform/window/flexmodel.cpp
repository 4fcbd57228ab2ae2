// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/flexmodel.h"

#include <algorithm>

namespace platform {

namespace {

constexpr int kFirstCols = 2;

} // namespace

FlexModel::FlexModel(QObject* parent)
    : QAbstractTableModel(parent)
    , m_columns(kFirstCols)
    , m_headings(kFirstCols)
    , m_lines(1)
{}

void FlexModel::setRows(int rows)
{
    if (rows == m_rows)
        return;
    beginResetModel();
    m_array.reset();
    m_rows = rows;
    m_lines.resize(static_cast<std::size_t>(rows - 1));
    endResetModel();
}

void FlexModel::setCols(int cols)
{
    if (cols == this->cols())
        return;
    beginResetModel();
    const auto count = static_cast<std::size_t>(cols);
    m_columns.resize(count);
    m_headings.resize(count);
    for (Line& line : m_lines) {
        if (line.size() > count)
            line.resize(count);
    }
    endResetModel();
}

QString FlexModel::text(int row, int col) const
{
    const auto column = static_cast<std::size_t>(col);
    if (row == 0)
        return m_headings.at(column);
    if (m_array)
        return m_array->text(col, row - 1);
    const Line& line = m_lines.at(static_cast<std::size_t>(row - 1));
    return column < line.size() ? line[column] : QString();
}

void FlexModel::setText(int row, int col, const QString& text)
{
    const auto column = static_cast<std::size_t>(col);
    if (row == 0) {
        m_headings.at(column) = text;
        Q_EMIT headerDataChanged(Qt::Horizontal, col, col);
        return;
    }
    if (m_array) {
        m_array->setText(col, row - 1, text);
    } else {
        Line& line = m_lines.at(static_cast<std::size_t>(row - 1));
        if (line.size() <= column)
            line.resize(m_columns.size());
        line[column] = text;
    }
    const QModelIndex cell = index(row - 1, col);
    Q_EMIT dataChanged(cell, cell);
}

void FlexModel::fill(const QString& text)
{
    if (m_array) {
        for (int row = 0; row < m_rows - 1; ++row) {
            for (int col = 0; col < cols(); ++col)
                m_array->setText(col, row, text);
        }
    } else {
        std::fill(m_lines.begin(), m_lines.end(), text.isEmpty() ? Line{} : Line(m_columns.size(), text));
    }
    repaintCells();
}

void FlexModel::clearHeadings()
{
    std::fill(m_headings.begin(), m_headings.end(), QString());
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, cols() - 1);
}

void FlexModel::bind(std::shared_ptr<CellArray> array)
{
    beginResetModel();
    m_array = std::move(array);
    m_lines.clear();
    m_rows = 1;
    if (m_array) {
        m_rows = m_array->rows() + 1;
        const auto count = static_cast<std::size_t>(m_array->columns());
        m_columns.resize(count);
        m_headings.resize(count);
    }
    endResetModel();
}

int FlexModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows - 1;
}

int FlexModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : cols();
}

QVariant FlexModel::data(const QModelIndex& index, int role) const
{
    const int row = index.row() + 1;
    const int col = index.column();
    const bool isTick = column(col).kind == CellKind::Boolean;
    switch (role) {
    case Qt::DisplayRole:
        return isTick || !column(col).isReadable() ? QVariant() : QVariant(look(row, col));
    case Qt::EditRole:
        return text(row, col);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(column(col).alignment);
    case Qt::CheckStateRole:
        return isTick ? QVariant(isTickedText(text(row, col)) ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::AccessibleTextRole:
        return spokenText(row, col);
    default:
        return {};
    }
}

bool FlexModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole)
        return false;
    setText(index.row() + 1, index.column(), value.toString());
    return true;
}

QVariant FlexModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return {};
    if (role == Qt::DisplayRole)
        return column(section).isReadable() ? text(0, section) : QString();
    if (role == Qt::AccessibleTextRole || role == Qt::ToolTipRole)
        return text(0, section);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(column(section).headingAlignment);
    return {};
}

Qt::ItemFlags FlexModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags result = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    if (!m_editable)
        return result;
    if (column(index.column()).kind == CellKind::Boolean)
        return result | Qt::ItemIsUserCheckable;
    return result | Qt::ItemIsEditable;
}

QString FlexModel::look(int row, int col) const
{
    return formattedLook(text(row, col), column(col).format);
}

QString FlexModel::spokenText(int row, int col) const
{
    QString heading = text(0, col);
    const QString value = look(row, col);
    if (value.isEmpty() || column(col).kind == CellKind::Boolean)
        return heading;
    return heading.isEmpty() ? value : heading + QStringLiteral(": ") + value;
}

void FlexModel::repaintCells()
{
    if (m_rows > 1 && cols() > 0)
        Q_EMIT dataChanged(index(0, 0), index(m_rows - 2, cols() - 1));
}

} // namespace platform
