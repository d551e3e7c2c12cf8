#include "TavixEditor/Panels/CommandMatch.h"

namespace tavix::editor {

std::optional<int> commandRank(const QString& words, const QString& letters) {
    constexpr int perGap = 3, perLateStart = 1, insideWord = 2;
    const qsizetype whole = words.indexOf(letters, 0, Qt::CaseInsensitive);
    if (letters.isEmpty()) return 0;
    if (whole >= 0)
        return int(whole) * perLateStart + (whole > 0 && words[whole - 1].isLetter() ? insideWord : 0);
    int rank = 100;   // behind all that match in one piece
    qsizetype at = -1;
    for (const QChar letter : letters) {
        const qsizetype next = words.indexOf(letter, at + 1, Qt::CaseInsensitive);
        if (next < 0) return std::nullopt;
        if (next != at + 1) rank += perGap;
        if (next > 0 && words[next - 1].isLetter() && next != at + 1) rank += insideWord;
        at = next;
    }
    return rank;
}

}   // namespace tavix::editor
