#include "tests/window/Accessible.h"

#include <atspi/atspi.h>
#include <gio/gio.h>

#include <algorithm>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace tarveth::harness {

namespace {

// Uses AT-SPI over D-Bus directly, since the accessibility library caches old answers and deadlocks when an
// event arrives during a call.
constexpr const char* kAccessible = "org.a11y.atspi.Accessible";
constexpr const char* kRootPath = "/org/a11y/atspi/accessible/root";

struct Unref {
    void operator()(GVariant* value) const { g_variant_unref(value); }
};
using Value = std::unique_ptr<GVariant, Unref>;

// The address of a control: the program's name on the bus and the path of the object in it.
struct Reference {
    std::string program;
    std::string path;
};

// Calls a method and gives its answer; null if there is none, since a control may disappear while it is being
// read.
Value Call(GDBusConnection* bus, const Reference& control, const char* interface, const char* method,
           GVariant* arguments = nullptr) {
    return Value(g_dbus_connection_call_sync(bus, control.program.c_str(), control.path.c_str(), interface,
                                             method, arguments, nullptr, G_DBUS_CALL_FLAGS_NONE,
                                             static_cast<int>(kPatience.count()), nullptr, nullptr));
}

// Gives the text in an answer; empty if there is no answer.
std::string OnlyText(const Value& answer) {
    const gchar* text = "";
    if (answer && g_variant_is_of_type(answer.get(), G_VARIANT_TYPE("(s)"))) {
        g_variant_get(answer.get(), "(&s)", &text);
    }
    return text;
}

std::string TextProperty(GDBusConnection* bus, const Reference& control, const char* property) {
    const Value answer = Call(bus, control, "org.freedesktop.DBus.Properties", "Get",
                              g_variant_new("(ss)", kAccessible, property));
    std::string text;
    if (answer && g_variant_is_of_type(answer.get(), G_VARIANT_TYPE("(v)"))) {
        GVariant* inner = nullptr;
        g_variant_get(answer.get(), "(v)", &inner);
        const Value owned(inner);
        if (g_variant_is_of_type(inner, G_VARIANT_TYPE_STRING)) {
            text = g_variant_get_string(inner, nullptr);
        }
    }
    return text;
}

std::vector<Reference> Children(GDBusConnection* bus, const Reference& control) {
    std::vector<Reference> children;
    const Value answer = Call(bus, control, kAccessible, "GetChildren");
    if (answer && g_variant_is_of_type(answer.get(), G_VARIANT_TYPE("(a(so))"))) {
        const Value list(g_variant_get_child_value(answer.get(), 0));
        for (gsize index = 0; index < g_variant_n_children(list.get()); ++index) {
            const gchar* program = nullptr;
            const gchar* path = nullptr;
            g_variant_get_child(list.get(), index, "(&s&o)", &program, &path);
            children.push_back({program, path});
        }
    }
    return children;
}

// Asks which interfaces a control has, since programs write warnings when another one is called.
bool Offers(GDBusConnection* bus, const Reference& control, const char* interface) {
    const Value answer = Call(bus, control, kAccessible, "GetInterfaces");
    if (!answer || !g_variant_is_of_type(answer.get(), G_VARIANT_TYPE("(as)"))) {
        return false;
    }
    const Value list(g_variant_get_child_value(answer.get(), 0));
    for (gsize index = 0; index < g_variant_n_children(list.get()); ++index) {
        const gchar* offered = nullptr;
        g_variant_get_child(list.get(), index, "&s", &offered);
        if (std::string_view(offered) == interface) {
            return true;
        }
    }
    return false;
}

std::string Text(GDBusConnection* bus, const Reference& control) {
    constexpr const char* kText = "org.a11y.atspi.Text";
    if (!Offers(bus, control, kText)) {
        return {};
    }
    return OnlyText(Call(bus, control, kText, "GetText", g_variant_new("(ii)", 0, -1)));
}

// Reads the states, each of which is a bit in two words.
std::set<std::string> States(GDBusConnection* bus, const Reference& control) {
    std::set<std::string> names;
    const Value answer = Call(bus, control, kAccessible, "GetState");
    if (!answer || !g_variant_is_of_type(answer.get(), G_VARIANT_TYPE("(au)"))) {
        return names;
    }
    const Value list(g_variant_get_child_value(answer.get(), 0));
    auto* kinds = static_cast<GEnumClass*>(g_type_class_ref(ATSPI_TYPE_STATE_TYPE));
    for (gsize word = 0; word < g_variant_n_children(list.get()); ++word) {
        guint32 bits = 0;
        g_variant_get_child(list.get(), word, "u", &bits);
        for (int bit = 0; bit < 32; ++bit) {
            const GEnumValue* kind = g_enum_get_value(kinds, static_cast<int>(word) * 32 + bit);
            if ((bits >> bit & 1U) != 0 && kind != nullptr) {
                names.insert(kind->value_nick);
            }
        }
    }
    g_type_class_unref(kinds);
    return names;
}

Rect Extents(GDBusConnection* bus, const Reference& control) {
    constexpr const char* kComponent = "org.a11y.atspi.Component";
    constexpr guint kOnScreen = 0;
    Rect extents;
    if (!Offers(bus, control, kComponent)) {
        return extents;
    }
    const Value answer = Call(bus, control, kComponent, "GetExtents", g_variant_new("(u)", kOnScreen));
    if (answer && g_variant_is_of_type(answer.get(), G_VARIANT_TYPE("((iiii))"))) {
        g_variant_get(answer.get(), "((iiii))", &extents.x, &extents.y, &extents.width, &extents.height);
    }
    // Controls that are not shown, such as the items of a closed menu, have the smallest integers as their
    // place.
    return extents.x == std::numeric_limits<int>::min() ? Rect{} : extents;
}

// Is called with each control; true ends the search.
using Visit = std::function<bool(const AccessibleNode&, const Reference&)>;

bool ReadControl(GDBusConnection* bus, const Reference& control, int depth, const Visit& visit) {
    AccessibleNode node;
    node.depth = depth;
    node.id = TextProperty(bus, control, "AccessibleId");
    node.role = OnlyText(Call(bus, control, kAccessible, "GetRoleName"));
    node.name = TextProperty(bus, control, "Name");
    node.description = TextProperty(bus, control, "Description");
    node.text = Text(bus, control);
    node.states = States(bus, control);
    node.extents = Extents(bus, control);
    if (visit(node, control)) {
        return true;
    }
    const std::vector<Reference> children = Children(bus, control);
    return std::any_of(children.begin(), children.end(),
                       [&](const Reference& child) { return ReadControl(bus, child, depth + 1, visit); });
}

std::optional<Reference> FindProgram(GDBusConnection* bus, pid_t program) {
    for (const Reference& candidate : Children(bus, {"org.a11y.atspi.Registry", kRootPath})) {
        const Value answer =
            Call(bus, {"org.freedesktop.DBus", "/org/freedesktop/DBus"}, "org.freedesktop.DBus",
                 "GetConnectionUnixProcessID", g_variant_new("(s)", candidate.program.c_str()));
        guint32 owner = 0;
        if (answer) {
            g_variant_get(answer.get(), "(u)", &owner);
        }
        if (static_cast<pid_t>(owner) == program) {
            return candidate;
        }
    }
    return std::nullopt;
}

// Connects to the accessibility bus, whose address the session bus gives.
std::string AccessibilityAddress() {
    GDBusConnection* session = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    if (session == nullptr) {
        return {};
    }
    std::string address =
        OnlyText(Call(session, {"org.a11y.Bus", "/org/a11y/bus"}, "org.a11y.Bus", "GetAddress"));
    g_object_unref(session);
    return address;
}

} // namespace

NodeCondition WithId(std::string id) {
    return [id = std::move(id)](const AccessibleNode& node) { return node.id == id; };
}

NodeCondition WithName(std::string name) {
    return [name = std::move(name)](const AccessibleNode& node) { return node.name == name; };
}

NodeCondition WithRole(std::string role) {
    return [role = std::move(role)](const AccessibleNode& node) { return node.role == role; };
}

NodeCondition WithRoleAndName(std::string role, std::string name) {
    return [role = std::move(role), name = std::move(name)](const AccessibleNode& node) {
        return node.role == role && node.name == name;
    };
}

ScreenReader::ScreenReader(pid_t program)
    : bus_(g_dbus_connection_new_for_address_sync(
               AccessibilityAddress().c_str(),
               static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                 G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
               nullptr, nullptr, nullptr),
           [](GDBusConnection* bus) { g_clear_object(&bus); }),
      program_(program) {
    if (!bus_) {
        throw std::runtime_error("no accessibility bus to read from");
    }
}

std::vector<AccessibleNode> ScreenReader::Read() const {
    std::vector<AccessibleNode> nodes;
    if (const auto program = FindProgram(bus_.get(), program_)) {
        ReadControl(bus_.get(), *program, 0, [&](const AccessibleNode& node, const Reference&) {
            nodes.push_back(node);
            return false;
        });
    }
    return nodes;
}

std::optional<AccessibleNode> ScreenReader::Find(const NodeCondition& condition) const {
    std::optional<AccessibleNode> found;
    if (const auto program = FindProgram(bus_.get(), program_)) {
        ReadControl(bus_.get(), *program, 0, [&](const AccessibleNode& node, const Reference&) {
            if (condition(node)) {
                found = node;
            }
            return found.has_value();
        });
    }
    return found;
}

std::optional<AccessibleNode> ScreenReader::WaitFor(const NodeCondition& condition,
                                                    Milliseconds patience) const {
    std::optional<AccessibleNode> found;
    WaitUntil([&] { return (found = Find(condition)).has_value(); }, patience);
    return found;
}

std::string ScreenReader::LabelText(const std::string& id) const {
    if (const auto known = labels_.find(id); known != labels_.end()) {
        const Reference label{known->second.first, known->second.second};
        if (TextProperty(bus_.get(), label, "AccessibleId") == id) {
            return Text(bus_.get(), label);
        }
    }
    std::optional<std::string> text;
    if (const auto program = FindProgram(bus_.get(), program_)) {
        ReadControl(bus_.get(), *program, 0, [&](const AccessibleNode& node, const Reference& control) {
            if (node.id == id) {
                text = node.text;
                labels_[id] = {control.program, control.path};
            }
            return text.has_value();
        });
    }
    if (!text) {
        throw std::runtime_error("no control is called " + id + "\n" + Outline());
    }
    return *text;
}

std::string ScreenReader::Outline() const {
    std::ostringstream outline;
    for (const AccessibleNode& node : Read()) {
        outline << std::string(static_cast<std::size_t>(node.depth) * 2, ' ') << node.role << " \""
                << node.name << '"';
        if (!node.id.empty()) {
            outline << " id=" << node.id;
        }
        if (!node.description.empty()) {
            outline << " description=\"" << node.description << '"';
        }
        if (!node.text.empty() && node.text != node.name) {
            outline << " text=\"" << node.text << '"';
        }
        outline << " at " << node.extents.x << ',' << node.extents.y << ' ' << node.extents.width << 'x'
                << node.extents.height << " [";
        for (const std::string& state : node.states) {
            outline << ' ' << state;
        }
        outline << " ]\n";
    }
    return outline.str();
}

} // namespace tarveth::harness
