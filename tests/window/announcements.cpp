#include "window/announcements.h"

#include "support/waiting.h"

#include <gtest/gtest.h>

namespace tarvin {

namespace {

constexpr const char* kind = "object:state-changed:checked";

gboolean expire(gpointer isOver) {
    *static_cast<bool*>(isOver) = true;
    return G_SOURCE_REMOVE;
}

}  // namespace

Announcements::Announcements() : listener_(atspi_event_listener_new(take, this, nullptr)) {
    EXPECT_NE(atspi_event_listener_register(listener_, kind, nullptr), 0);
}

Announcements::~Announcements() {
    atspi_event_listener_deregister(listener_, kind, nullptr);
    g_object_unref(listener_);
}

void Announcements::take(AtspiEvent* event, void* self) {
    gchar* name = atspi_accessible_get_name(event->source, nullptr);
    static_cast<Announcements*>(self)->heard_.push_back(std::string(name == nullptr ? "" : name) +
                                                        (event->detail1 != 0 ? " on" : " off"));
    g_free(name);
    g_boxed_free(ATSPI_TYPE_EVENT, event);
}

bool Announcements::hear(
    const std::function<bool(const std::vector<std::string>& heard)>& isEnough) {
    bool isOver = false;
    const guint alarm = g_timeout_add_seconds(testPatience.count(), expire, &isOver);
    while (!isEnough(heard_) && !isOver) {
        g_main_context_iteration(nullptr, TRUE);
    }
    if (!isOver) {
        g_source_remove(alarm);
    }
    return isEnough(heard_);
}

}  // namespace tarvin
