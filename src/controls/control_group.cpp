#include "controls/control_group.h"

#include "controls/accessible_factory.h"

#include <QAccessibleWidget>

namespace tarvin {

namespace {

/// Has the role of a group. Owned by Qt.
class AccessibleGroup final : public QAccessibleWidget {
 public:
    explicit AccessibleGroup(ControlGroup& group)
        : QAccessibleWidget(&group, QAccessible::Grouping) {}
};

}  // namespace

ControlGroup::ControlGroup(QWidget* parent) : QWidget(parent) {
    installAccessible<ControlGroup, AccessibleGroup>();
}

}  // namespace tarvin
