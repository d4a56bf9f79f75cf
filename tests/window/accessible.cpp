#include "window/accessible.h"

#include <algorithm>

namespace tarvin {

namespace {

/// Receives the GError of a call, and ignores it.
class Answer final {
 public:
    Answer() = default;
    Answer(const Answer&) = delete;
    Answer& operator=(const Answer&) = delete;
    ~Answer() { g_clear_error(&error_); }

    operator GError**() { return &error_; }  // NOLINT(google-explicit-constructor)

 private:
    GError* error_ = nullptr;
};

std::string textOf(gchar* owned) {
    const std::unique_ptr<gchar, decltype(&g_free)> text(owned, g_free);
    return text ? std::string(text.get()) : std::string();
}

}  // namespace

Accessible::Accessible(AtspiAccessible* owned) : object_(owned, Unreference()) {}

Accessible Accessible::desktop() {
    AtspiAccessible* desktop = atspi_get_desktop(0);
    // Each property is a D-Bus call to the program.
    atspi_accessible_set_cache_mask(desktop, ATSPI_CACHE_NONE);
    return Accessible(desktop);
}

std::string Accessible::name() const {
    return textOf(atspi_accessible_get_name(object_.get(), Answer()));
}

std::string Accessible::description() const {
    return textOf(atspi_accessible_get_description(object_.get(), Answer()));
}

AtspiRole Accessible::role() const {
    return atspi_accessible_get_role(object_.get(), Answer());
}

bool Accessible::is(AtspiStateType state) const {
    AtspiStateSet* states = atspi_accessible_get_state_set(object_.get());
    const bool is = states != nullptr && atspi_state_set_contains(states, state) != 0;
    g_clear_object(&states);
    return is;
}

Area Accessible::area() const {
    AtspiComponent* component = atspi_accessible_get_component_iface(object_.get());
    if (component == nullptr) {
        return {};
    }
    AtspiRect* rect = atspi_component_get_extents(component, ATSPI_COORD_TYPE_SCREEN, Answer());
    g_object_unref(component);
    const Area area = rect ? Area{rect->x, rect->y, rect->width, rect->height} : Area{};
    g_free(rect);
    return area;
}

double Accessible::value() const {
    AtspiValue* value = atspi_accessible_get_value_iface(object_.get());
    if (value == nullptr) {
        return 0;
    }
    const double number = atspi_value_get_current_value(value, Answer());
    g_object_unref(value);
    return number;
}

pid_t Accessible::process() const {
    return static_cast<pid_t>(atspi_accessible_get_process_id(object_.get(), Answer()));
}

std::vector<Accessible> Accessible::children() const {
    std::vector<Accessible> children;
    const int count = atspi_accessible_get_child_count(object_.get(), Answer());
    for (int number = 0; number < count; ++number) {
        if (auto* child = atspi_accessible_get_child_at_index(object_.get(), number, Answer())) {
            children.push_back(Accessible(child));
        }
    }
    return children;
}

std::vector<std::string> Accessible::actions() const {
    AtspiAction* actions = atspi_accessible_get_action_iface(object_.get());
    if (actions == nullptr) {
        return {};
    }
    std::vector<std::string> names;
    const int count = atspi_action_get_n_actions(actions, Answer());
    for (int number = 0; number < count; ++number) {
        names.push_back(textOf(atspi_action_get_action_name(actions, number, Answer())));
    }
    g_object_unref(actions);
    return names;
}

bool Accessible::act(const std::string& name) const {
    const std::vector<std::string> names = actions();
    const auto found = std::find(names.begin(), names.end(), name);
    AtspiAction* actions = atspi_accessible_get_action_iface(object_.get());
    const bool done =
        actions != nullptr && found != names.end() &&
        atspi_action_do_action(actions, static_cast<int>(found - names.begin()), Answer()) != FALSE;
    g_clear_object(&actions);
    return done;
}

int Accessible::rows() const {
    AtspiTable* table = atspi_accessible_get_table_iface(object_.get());
    if (table == nullptr) {
        return 0;
    }
    const int rows = atspi_table_get_n_rows(table, Answer());
    g_object_unref(table);
    return rows;
}

std::optional<Accessible> Accessible::cell(int row, int column) const {
    AtspiTable* table = atspi_accessible_get_table_iface(object_.get());
    AtspiAccessible* cell =
        table ? atspi_table_get_accessible_at(table, row, column, Answer()) : nullptr;
    g_clear_object(&table);
    return cell ? std::optional(Accessible(cell)) : std::nullopt;
}

}  // namespace tarvin
