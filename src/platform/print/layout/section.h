// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One section for one record: what its items say, how high they become, where they go.

#include "platform/print/data/execution.h"
#include "platform/print/layout/letters.h"

#include <memory>
#include <vector>

namespace platform::print {

/// Letters of every style of a report, made when first asked for.
class LetterCase
{
public:
    explicit LetterCase(const std::vector<Style>& styles)
        : m_styles(styles)
        , m_letters(styles.size())
    {}
    [[nodiscard]] Letters& letters(int style);
    [[nodiscard]] const Style& style(int style) const { return m_styles[static_cast<std::size_t>(style)]; }

private:
    const std::vector<Style>& m_styles;
    std::vector<std::unique_ptr<Letters>> m_letters;
};

/// Texts of a section's items, in order, as they were when it was placed. Kept where a formula may be
/// evaluated only once.
using KeptTexts = std::vector<QString>;

struct PlacedSection;

/// An item with its place in the section, in millimetres.
struct PlacedItem
{
    const Item* item = nullptr;
    double y = 0;
    double height = 0;
    QStringList lines;
    std::vector<PlacedSection> strip; ///< of a subreport: its sections one below the other
};

struct SectionLayout
{
    double height = 0; ///< 0 when suppressed
    bool suppressed = false;
    std::vector<PlacedItem> items;
    std::vector<QString> texts; ///< by item
};

/// A section on a page, or in a subreport's strip.
struct PlacedSection
{
    int section = 0;
    quint32 position = 0;
    double y = 0; ///< from the body's top, or the strip's
    double height = 0;
    double skipped = 0; ///< height already printed on the pages before
    bool repeated = false;
    bool cut = false;
    std::shared_ptr<const KeptTexts> kept;
};

/// Lays out sections of one execution. The execution stands on the record wanted.
class SectionMaker
{
public:
    SectionMaker(Execution& execution, LetterCase& letters);

    [[nodiscard]] SectionLayout make(int section, const KeptTexts* kept = nullptr);
    /// Height alone; a section where nothing grows isn't laid out for it.
    [[nodiscard]] double height(int section);
    /// True when a formula of the section holds a variable, so that it is evaluated once and its texts kept.
    [[nodiscard]] bool keepsTexts(int section) const
    {
        return m_traits[static_cast<std::size_t>(section)].keeps;
    }
    /// Greatest height up to `room` at which the section can be cut between lines; 0 when there is none.
    [[nodiscard]] static double cutPoint(const SectionLayout& layout, double skipped, double room,
                                         LetterCase& letters);
    [[nodiscard]] Execution& execution() noexcept { return m_execution; }
    [[nodiscard]] SectionMaker& subreport(int i);

private:
    struct Traits
    {
        bool fixed = true; ///< always of its declared height, unless suppressed
        bool keeps = false;
    };

    [[nodiscard]] bool suppressed(const Section& section);
    [[nodiscard]] QString text(const Item& item);
    [[nodiscard]] QString fieldText(const Item& item, const formula::Formula& formula);
    [[nodiscard]] QString wholeOrHashes(const Item& item, const QString& number);
    [[nodiscard]] bool repeatsAbove(const Item& item);
    void fill(PlacedItem& placed, const QString& text);
    std::vector<PlacedSection> strip(int subreport, double& height);

    Execution& m_execution;
    LetterCase& m_letters;
    std::vector<Traits> m_traits;
    std::vector<std::unique_ptr<SectionMaker>> m_subreports;
};

} // namespace platform::print
