#include "TavixEditor/App/FindingText.h"

#include "TavixEditor/App/FindingSentences.h"
#include "TavixEditor/App/Words.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <functional>
#include <span>
#include <vector>

namespace tavix::editor {

namespace {

class Sentences {
public:
    Sentences(const char* context, std::span<const FindingSentence> all) : context_(context) {
        for (const FindingSentence& sentence : all) readers_.push_back(readerOf(sentence));
        // The one that leaves the least open: "the text has 1 word" before "the text has %2".
        std::ranges::stable_sort(
            readers_, std::greater(), [](const Reader& reader) { return reader.fixedLength; });
    }

    std::optional<QString> translated(const QString& said) const;

private:
    struct Reader {
        const FindingSentence* sentence;
        QRegularExpression expression;
        QString longestPiece;   // a quick look tells most of them apart
        qsizetype fixedLength;
    };
    static Reader readerOf(const FindingSentence& sentence);

    const char* context_;
    std::vector<Reader> readers_;
};

const Sentences& wholeSentences() {
    static const Sentences all("Finding", findingSentences());
    return all;
}

const Sentences& partsOfSentences() {
    static const Sentences all("FindingPart", findingParts());
    return all;
}

Sentences::Reader Sentences::readerOf(const FindingSentence& sentence) {
    static const QRegularExpression place(QStringLiteral("%[1-9]"));
    const QStringList pieces = words(sentence.pattern).split(place);
    QStringList escaped;
    QString longest;
    qsizetype length = 0;
    for (const QString& piece : pieces) {
        escaped << QRegularExpression::escape(piece);
        length += piece.size();
        if (piece.size() > longest.size()) longest = piece;
    }
    const QString whole = QRegularExpression::anchoredPattern(escaped.join(QStringLiteral("(.*?)")));
    return {&sentence, QRegularExpression(whole, QRegularExpression::DotMatchesEverythingOption), longest,
        length};
}

// The words that are put in may hold "%1" themselves.
QString filled(const QString& pattern, const QStringList& arguments) {
    QString text;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const int number =
            pattern[i] == QLatin1Char('%') && i + 1 < pattern.size() ? pattern[i + 1].digitValue() : 0;
        if (number < 1 || number > arguments.size()) {
            text += pattern[i];
        } else {
            text += arguments[number - 1];
            ++i;
        }
    }
    return text;
}

std::optional<QString> Sentences::translated(const QString& said) const {
    for (const Reader& reader : readers_) {
        if (!said.contains(reader.longestPiece)) continue;
        const QRegularExpressionMatch match = reader.expression.match(said);
        if (!match.hasMatch()) continue;
        QStringList arguments = match.capturedTexts().mid(1);
        for (const char* number = reader.sentence->parts; *number != 0; ++number) {
            QString& argument = arguments[*number - '1'];
            argument = partsOfSentences().translated(argument).value_or(argument);
        }
        return filled(QCoreApplication::translate(context_, reader.sentence->pattern), arguments);
    }
    return std::nullopt;
}

}   // namespace

std::optional<QString> knownFinding(const QString& sentence) { return wholeSentences().translated(sentence); }

QString findingWords(const std::string& sentence) {
    const QString said = words(sentence);
    return knownFinding(said).value_or(said);
}

}   // namespace tavix::editor
