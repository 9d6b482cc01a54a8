#include "publishing/mail/html_limits.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace mail {

namespace {

constexpr qsizetype kMostText = qsizetype(4) << 20; // characters
constexpr qsizetype kLongestParagraph = qsizetype(32) << 10;
constexpr int kDeepest = 100;
constexpr int kMostTags = 200'000;

struct Nested {
    QStringView tag;
    int deepest; // of this tag in itself
};
constexpr std::array<Nested, 6> kNested{{
    {u"table", 6},
    {u"div", kDeepest},
    {u"ul", kDeepest},
    {u"ol", kDeepest},
    {u"blockquote", kDeepest},
    {u"span", kDeepest},
}};

constexpr std::array<QStringView, 8> kNewLines{u"p",  u"br", u"div", u"td",
                                               u"li", u"h1", u"h2",  u"h3"};

// Goes through the tags of a document and what stands between them.
class Measure {
public:
    void text(qsizetype length)
    {
        m_text += length;
        m_paragraph += length;
        m_longest = std::max(m_longest, m_paragraph);
    }

    void tag(QStringView content)
    {
        const bool ends = content.startsWith(u'/');
        const QStringView name = nameOf(ends ? content.mid(1) : content);
        ++m_tags;
        for (std::size_t index = 0; index < kNested.size(); ++index) {
            if (isTag(name, kNested.at(index).tag)) {
                m_depths.at(index) = std::max(0, m_depths.at(index) + (ends ? -1 : 1));
                m_tooDeep = m_tooDeep || m_depths.at(index) > kNested.at(index).deepest;
            }
        }
        if (std::ranges::any_of(kNewLines, [&](QStringView line) { return isTag(name, line); })) {
            m_paragraph = 0;
        }
    }

    [[nodiscard]] bool isWithinBounds() const
    {
        return m_text <= kMostText && m_longest <= kLongestParagraph && m_tags <= kMostTags &&
               !m_tooDeep;
    }

private:
    static QStringView nameOf(QStringView content)
    {
        const auto isPart = [](QChar c) { return c.isLetterOrNumber(); };
        return content.left(std::ranges::find_if_not(content, isPart) - content.begin());
    }

    static bool isTag(QStringView name, QStringView tag)
    {
        return name.compare(tag, Qt::CaseInsensitive) == 0;
    }

    qsizetype m_text = 0;
    qsizetype m_paragraph = 0;
    qsizetype m_longest = 0;
    int m_tags = 0;
    std::array<int, kNested.size()> m_depths{};
    bool m_tooDeep = false;
};

} // namespace

bool isShowableHtml(QStringView html)
{
    Measure measure;
    qsizetype at = 0;
    while (at < html.size() && measure.isWithinBounds()) {
        const qsizetype open = html.indexOf(u'<', at);
        measure.text((open < 0 ? html.size() : open) - at);
        if (open < 0) {
            break;
        }
        const qsizetype close = html.indexOf(u'>', open);
        const qsizetype behind = close < 0 ? html.size() : close;
        measure.tag(html.mid(open + 1, behind - open - 1));
        at = behind + 1;
    }
    return measure.isWithinBounds();
}

bool isShowableText(QStringView text)
{
    qsizetype start = 0;
    qsizetype longest = 0;
    while (start <= text.size()) {
        const qsizetype end = text.indexOf(u'\n', start);
        longest = std::max(longest, (end < 0 ? text.size() : end) - start);
        start = end < 0 ? text.size() + 1 : end + 1;
    }
    return text.size() <= kMostText && longest <= kLongestParagraph;
}

} // namespace mail
