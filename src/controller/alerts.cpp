#include "controller/alerts.h"

#include <QCoreApplication>

namespace tarvin {

Alert noticeOf(const QString& informativeText) {
    return {QCoreApplication::translate("tarvin::Alerts", "Tarvin Duplicate File Remover"),
            informativeText,
            {QCoreApplication::translate("tarvin::Alerts", "Ok")},
            0};
}

}  // namespace tarvin
