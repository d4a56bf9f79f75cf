#include "controller/own_reasons.h"

namespace tarvin {

QString OwnReasons::ofTrash(TrashRefusalKind kind, const std::string& words) {
    switch (kind) {
        case TrashRefusalKind::gone:
            return tr("No longer in the Trash");
        case TrashRefusalKind::taken:
            return tr("Something else has its name now");
        case TrashRefusalKind::otherVolume:
            return tr("Its Trash is on another volume");
        case TrashRefusalKind::noHome:
        case TrashRefusalKind::noVolume:
            return tr("This volume has no Trash");
        case TrashRefusalKind::link:
            return tr("A folder of the Trash is a link");
        case TrashRefusalKind::notFolder:
            return tr("A part of the Trash is not a folder");
        case TrashRefusalKind::notOurs:
            return tr("The Trash belongs to another user");
        case TrashRefusalKind::notPrivate:
            return tr("Other users can change the Trash");
        case TrashRefusalKind::noName:
            return tr("There is no free name in the Trash");
        case TrashRefusalKind::system:
            break;
    }
    return QString::fromStdString(words);
}

/// StoreError has no kind for these, so they are recognised by their texts.
QString OwnReasons::ofStore(const std::string& text) {
    static constexpr const char* known[]{
        QT_TR_NOOP("there is no home folder to keep the journal in"),
        QT_TR_NOOP("in use by another process"),
        QT_TR_NOOP("a database of another program"),
        QT_TR_NOOP("database or disk is full"),  // SQLite's
        QT_TR_NOOP("written by a newer version of the program"),
        QT_TR_NOOP("is a link"),
        QT_TR_NOOP("the file is damaged"),
        QT_TR_NOOP("the file was moved or replaced"),
        QT_TR_NOOP("not a regular file"),
        QT_TR_NOOP("a link to a missing file"),
        QT_TR_NOOP("the file is too large"),
        QT_TR_NOOP("not a property list"),
        QT_TR_NOOP("not a property list of totals")};
    for (const char* const each : known) {
        if (text == each) {
            return tr(each);
        }
    }
    return QString::fromStdString(text);
}

}  // namespace tarvin
