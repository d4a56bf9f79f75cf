#include "window/announcements.h"

#include "support/waiting.h"

#include <gtest/gtest.h>

#include <utility>

namespace tarvin {

namespace {

const char* eventOf(Announcements::Kind kind) {
    return kind == Announcements::Kind::names ? "object:property-change:accessible-name"
                                              : "object:state-changed:checked";
}

gboolean expire(gpointer isOver) {
    *static_cast<bool*>(isOver) = true;
    return G_SOURCE_REMOVE;
}

}  // namespace

Announcements::Announcements(Kind kind)
    : kind_(kind), listener_(atspi_event_listener_new(take, this, nullptr)) {
    EXPECT_NE(atspi_event_listener_register(listener_, eventOf(kind_), nullptr), 0);
}

Announcements::~Announcements() {
    atspi_event_listener_deregister(listener_, eventOf(kind_), nullptr);
    g_object_unref(listener_);
}

void Announcements::take(AtspiEvent* event, void* self) {
    gchar* name = atspi_accessible_get_name(event->source, nullptr);
    auto& announcements = *static_cast<Announcements*>(self);
    std::string text = name == nullptr ? "" : name;
    if (announcements.kind_ == Kind::checkBoxes) {
        text += event->detail1 != 0 ? " on" : " off";
    }
    announcements.heard_.push_back(std::move(text));
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
