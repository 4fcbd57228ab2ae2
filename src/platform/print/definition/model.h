// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A report definition in memory. Lengths are millimetres, sizes of letters points, colours 0xRRGGBB.

#include "platform/print/definition/formats.h"
#include "platform/print/formula/formula.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace platform::print {

enum class Align { Left, Center, Right };
enum class VerticalAlign { Top, Center, Bottom };

struct Style
{
    QString id;
    QStringList families; ///< the first installed one counts
    double points = 9;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    quint32 color = 0x000000;
    std::optional<quint32> background;
    Align align = Align::Left;
    VerticalAlign vertical = VerticalAlign::Top;
    std::optional<Format> format;
};

/// Equality with an earlier table: `field` belongs to the table itself.
struct TableLink
{
    formula::Formula field;
    formula::Formula with;
};

struct Table
{
    QString alias;
    QString file;  ///< as written: "NAME", "@k" or "@k/NAME"
    QString table; ///< name within the store
    bool optional = false;
    int maxRows = 0; ///< matches taken for each row; 0 for all
    std::vector<TableLink> links;
    std::optional<formula::Formula> condition;
};

struct FormulaField
{
    QString name;
    formula::Formula formula;
};

enum class Together { No, WithDetail, All };

struct Group
{
    formula::Formula field;
    std::optional<formula::Formula> key; ///< sorts before the field
    bool descending = false;
    Together together = Together::WithDetail;
    bool newPage = false;
    bool restartPages = false;
};

struct SortField
{
    formula::Formula field;
    bool descending = false;
};

/// A piece of a literal: a text, or a field between braces.
struct TextPiece
{
    QString text;
    std::optional<formula::Formula> field;
};

struct Item
{
    enum class Kind { Text, Field, Line, Box, Picture, Subreport };

    Kind kind = Kind::Text;
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    double toX = 0; ///< of a line
    double toY = 0;
    int style = 0;
    std::vector<TextPiece> pieces;           ///< of a text, or what stands in for a missing picture
    std::optional<formula::Formula> formula; ///< of a field, or a picture taken from a column
    std::optional<formula::Formula> suppress;
    std::optional<Format> format;
    bool grows = false;
    bool blankRepeated = false;
    double thickness = 0.2;
    quint32 color = 0x000000;
    std::optional<quint32> background;
    double rounding = 0;
    bool toFoot = false; ///< stretches with the section
    QString file;        ///< of a picture, beside the report file
    bool optional = false;
    int subreport = -1;
};

enum class SectionKind {
    ReportHeader,
    PageHeader,
    GroupHeader,
    Detail,
    GroupFooter,
    ReportFooter,
    PageFooter,
    NoData
};

struct Section
{
    SectionKind kind = SectionKind::Detail;
    int group = -1; ///< from 0
    int letter = 0; ///< from 0 among sections of one kind and group
    double height = 0;
    bool together = false;
    bool newPageBefore = false;
    bool newPageAfter = false;
    bool atFoot = false;
    bool repeat = false;
    bool suppressEmpty = false;
    std::optional<formula::Formula> suppress;
    std::vector<Item> items;
};

struct PageSetup
{
    double width = 210;
    double height = 297;
    double top = 12;
    double right = 12;
    double bottom = 12;
    double left = 12;
};

/// A report or a subreport. Styles and page belong to the main report and are shared by its subreports.
struct Report
{
    QString name;
    bool caseSensitive = false;
    bool nullsAsEmpty = false;
    PageSetup page;
    std::vector<Style> styles; ///< number 0 is the one of items that name none
    std::vector<Table> tables;
    formula::Formula filter;
    formula::Formula selection;
    formula::Formula groupSelection;
    std::vector<FormulaField> formulas;
    std::vector<Group> groups;
    std::vector<SortField> sorting;
    std::vector<Section> sections; ///< from the top of the report down
    std::vector<TableLink> links;  ///< of a subreport: its field, and the main report's that it equals
    std::vector<Report> subreports;

    [[nodiscard]] FormulaField* formulaField(QStringView fieldName);
    [[nodiscard]] int subreportIndex(QStringView subreportName) const;
};

} // namespace platform::print
