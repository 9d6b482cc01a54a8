#pragma once

#include <QString>
#include <vector>

namespace platform {

// Patterns for file names, made ready once and then asked for each name. "*" stands for any text,
// "?" for one character; "*.*" means every name, with or without a dot, and so does no pattern at
// all. Case is not regarded.
class Wildcards {
public:
    // Patterns separated by ";".
    explicit Wildcards(const QString& patterns);

    // One pattern as it stands, ";" and blanks included. "" matches no name.
    static Wildcards single(const QString& pattern);

    [[nodiscard]] bool matches(const QString& name) const
    {
        return matchesFolded(name.toCaseFolded());
    }

    // The same for a name whose case is folded already.
    [[nodiscard]] bool matchesFolded(const QString& name) const;

private:
    enum class Kind { Everything, Ending, General };

    struct Pattern {
        Kind kind = Kind::General;
        QString text; // the ending, or the whole pattern; its case folded
    };

    Wildcards() = default;

    static Pattern prepared(const QString& text);
    static bool matchesOne(const Pattern& pattern, const QString& name);

    std::vector<Pattern> m_patterns;
};

} // namespace platform
