// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/definition/xmltree.h"

#include <QStringDecoder>
#include <QXmlStreamReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

class TreeReader
{
public:
    TreeReader(const QString& source, std::vector<DefinitionFault>& faults)
        : m_source(source)
        , m_reader(source)
        , m_faults(faults)
    {
        // CR LF, LF and a lone CR each end one line, as for the reader.
        for (qsizetype i = 0; i < source.size(); ++i) {
            const bool beforeLf = i + 1 < source.size() && source[i + 1] == u'\n';
            if (source[i] == u'\n' || (source[i] == u'\r' && !beforeLf))
                m_lines.push_back(i + 1);
        }
    }

    std::optional<XmlElement> run()
    {
        std::optional<XmlElement> root;
        while (!m_failed && !m_reader.atEnd()) {
            const QXmlStreamReader::TokenType token = m_reader.readNext();
            if (token == QXmlStreamReader::StartElement)
                root = element(1);
            else
                refuse(token);
        }
        if (m_reader.hasError() && !m_failed)
            fail(m_reader.error() == QXmlStreamReader::PrematureEndOfDocumentError
                     ? u"el fichero acaba antes de tiempo"_s
                     : u"el fichero no es XML bien formado"_s);
        return m_failed ? std::nullopt : root;
    }

private:
    SourcePlace placeOf(qsizetype offset) const
    {
        const auto line = std::upper_bound(m_lines.begin(), m_lines.end(), offset) - 1;
        return {static_cast<int>(line - m_lines.begin()) + 1, static_cast<int>(offset - *line) + 1};
    }

    void fail(const QString& text)
    {
        m_failed = true;
        m_faults.push_back(
            {{static_cast<int>(m_reader.lineNumber()), static_cast<int>(m_reader.columnNumber()) + 1}, text});
    }

    void refuse(QXmlStreamReader::TokenType token)
    {
        if (token == QXmlStreamReader::DTD)
            fail(u"no se admite un tipo de documento (DTD)"_s);
        else if (token == QXmlStreamReader::EntityReference)
            fail(u"entidad desconocida «%1»"_s.arg(m_reader.name()));
        else if (token == QXmlStreamReader::ProcessingInstruction)
            fail(u"no se admiten instrucciones de proceso"_s);
        else if (token == QXmlStreamReader::StartDocument && !m_reader.documentEncoding().isEmpty() &&
                 m_reader.documentEncoding().compare(u"UTF-8", Qt::CaseInsensitive) != 0)
            fail(u"la codificación ha de ser UTF-8"_s);
    }

    XmlElement element(int depth)
    {
        XmlElement made;
        made.name = m_reader.qualifiedName().toString();
        const qsizetype end = std::clamp<qsizetype>(m_reader.characterOffset(), 1, m_source.size());
        const qsizetype start = std::max<qsizetype>(m_source.lastIndexOf(u'<', end - 1), 0);
        made.place = placeOf(start);
        for (const QXmlStreamAttribute& attribute : m_reader.attributes()) {
            const QString name = attribute.qualifiedName().toString();
            made.attributes.push_back(
                {name, attribute.value().toString(), placeOf(attributeOffset(start, end, name))});
        }
        if (depth > kMaxElementDepth)
            fail(u"los elementos están demasiado anidados"_s);
        content(made, depth);
        return made;
    }

    void content(XmlElement& made, int depth)
    {
        while (!m_failed && !m_reader.atEnd()) {
            const QXmlStreamReader::TokenType token = m_reader.readNext();
            if (token == QXmlStreamReader::EndElement)
                return;
            if (token == QXmlStreamReader::StartElement)
                made.children.push_back(element(depth + 1));
            else if (token == QXmlStreamReader::Characters)
                made.text += m_reader.text();
            else
                refuse(token);
        }
    }

    /// Where an attribute's name stands in its tag: outside quotes, between a blank and its "=".
    qsizetype attributeOffset(qsizetype start, qsizetype end, const QString& name) const
    {
        QChar quote;
        for (qsizetype i = start; i < end; ++i) {
            const QChar character = m_source[i];
            if (!quote.isNull()) {
                if (character == quote)
                    quote = QChar();
            } else if (character == u'"' || character == u'\'') {
                quote = character;
            } else if (m_source[i].isSpace() && QStringView(m_source).sliced(i + 1).startsWith(name)) {
                const QChar after = i + 1 + name.size() < end ? m_source[i + 1 + name.size()] : QChar();
                if (after == u'=' || after.isSpace())
                    return i + 1;
            }
        }
        return start;
    }

    const QString& m_source;
    QXmlStreamReader m_reader;
    std::vector<DefinitionFault>& m_faults;
    std::vector<qsizetype> m_lines{0};
    bool m_failed = false;
};

} // namespace

std::optional<XmlElement> readXmlTree(const QByteArray& bytes, std::vector<DefinitionFault>& faults)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString source = decoder.decode(bytes);
    if (decoder.hasError()) {
        faults.push_back({{}, u"el fichero no es UTF-8"_s});
        return std::nullopt;
    }
    return TreeReader(source, faults).run();
}

} // namespace platform::print
