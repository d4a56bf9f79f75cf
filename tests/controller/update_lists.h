#pragma once

#include <QByteArray>
#include <QString>
#include <initializer_list>
#include <string>
#include <utility>

namespace tarvin {

/// A property list: a dictionary of strings.
inline std::string listOfTexts(std::initializer_list<std::pair<std::string, std::string>> texts) {
    std::string list = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>";
    for (const auto& [key, text] : texts) {
        list += "<key>" + key + "</key><string>" + text + "</string>";
    }
    return list + "</dict></plist>";
}

}  // namespace tarvin
