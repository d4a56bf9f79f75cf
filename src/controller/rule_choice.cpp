#include "controller/rule_choice.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <array>
#include <utility>

namespace tarvin {

namespace {

constexpr const char* ruleKey = "MarkByRule/Keep";
constexpr const char* preferredKey = "MarkByRule/PreferredFolders";
constexpr const char* protectedKey = "MarkByRule/ProtectedFolders";

constexpr std::array ruleWords{
    std::pair(KeepRule::first, "first"),     std::pair(KeepRule::newest, "newest"),
    std::pair(KeepRule::oldest, "oldest"),   std::pair(KeepRule::shortest, "shortest"),
    std::pair(KeepRule::longest, "longest"), std::pair(KeepRule::preferred, "preferred")};

QStringList encoded(const std::vector<std::string>& paths) {
    QStringList texts;
    for (const std::string& path : paths) {
        texts.push_back(
            QString::fromLatin1(QByteArray::fromStdString(path).toPercentEncoding("/")));
    }
    return texts;
}

std::vector<std::string> decoded(const QStringList& texts) {
    std::vector<std::string> paths;
    for (const QString& text : texts) {
        const std::string path = QByteArray::fromPercentEncoding(text.toLatin1()).toStdString();
        const bool isListed = std::find(paths.begin(), paths.end(), path) != paths.end();
        if (path.starts_with('/') && !isListed) {
            paths.push_back(path);
        }
    }
    return paths;
}

}  // namespace

RuleChoice storedRuleChoice(const QSettings& settings) {
    RuleChoice choice;
    const QString word = settings.value(QLatin1String(ruleKey)).toString();
    for (const auto& [rule, name] : ruleWords) {
        if (word == QLatin1String(name)) {
            choice.keep = rule;
        }
    }
    choice.preferred = decoded(settings.value(QLatin1String(preferredKey)).toStringList());
    choice.protectedFolders = decoded(settings.value(QLatin1String(protectedKey)).toStringList());
    return choice;
}

void storeRuleChoice(QSettings& settings, const RuleChoice& choice) {
    for (const auto& [rule, name] : ruleWords) {
        if (choice.keep == rule) {
            settings.setValue(QLatin1String(ruleKey), QLatin1String(name));
        }
    }
    settings.setValue(QLatin1String(preferredKey), encoded(choice.preferred));
    settings.setValue(QLatin1String(protectedKey), encoded(choice.protectedFolders));
}

}  // namespace tarvin
