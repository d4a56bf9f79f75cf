#include "controller/rule_texts.h"

#include "controller/shown_numbers.h"

namespace tarvin {

QString RuleTexts::outcome(const MarkingOutcome& outcome) {
    if (outcome.files == 0) {
        return tr("No files will be marked.");
    }
    const QString size = ShownNumbers::size(outcome.bytes);
    if (outcome.files == 1) {
        return tr("1 file (%1) will be marked in 1 set.").arg(size);
    }
    const QString files = ShownNumbers::count(outcome.files);
    return outcome.sets == 1 ? tr("%1 files (%2) will be marked in 1 set.").arg(files, size)
                             : tr("%1 files (%2) will be marked in %3 sets.")
                                   .arg(files, size, ShownNumbers::count(outcome.sets));
}

QString RuleTexts::blocked(std::uint64_t sets, bool replacesMarks) {
    QString text;
    if (sets > 0) {
        text = sets == 1
                   ? tr("1 set has no copy that may be marked.")
                   : tr("%1 sets have no copy that may be marked.").arg(ShownNumbers::count(sets));
    }
    if (replacesMarks) {
        text += text.isEmpty() ? QString() : QStringLiteral(" ");
        text += tr("Earlier marks are replaced.");
    }
    return text;
}

}  // namespace tarvin
