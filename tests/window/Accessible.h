// Reads a program's controls as a screen reader does (AT-SPI): a tree of nodes with a role, a name and so on.
#pragma once

#include "tests/window/Screen.h"
#include "tests/window/Waiting.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <sys/types.h>

struct _GDBusConnection; // NOLINT(bugprone-reserved-identifier): the bus library's own name

namespace tarveth::harness {

struct AccessibleNode {
    int depth = 0;                // 0 is the program itself
    std::string id;               // the given name of the control, such as "lblMessage"; empty if it has none
    std::string role;             // "label", "menu item", "push button" ...
    std::string name;             // what is read out first; a label's is its text
    std::string description;      // what is read out after it
    std::string text;             // the text in it, for labels and text boxes
    std::set<std::string> states; // "showing", "focused", "checked", "sensitive" ...
    // On the screen, in the toolkit's own units (half the pixels with GDK_SCALE=2); all zero while it is not
    // shown.
    Rect extents;

    [[nodiscard]] bool Has(const std::string& state) const { return states.contains(state); }
};

using NodeCondition = std::function<bool(const AccessibleNode&)>;

// Conditions for Find.
NodeCondition WithId(std::string id);
NodeCondition WithName(std::string name);
NodeCondition WithRole(std::string role);
NodeCondition WithRoleAndName(std::string role, std::string name);

class ScreenReader {
public:
    // Reads the program with this process id. Throws std::runtime_error when there is no accessibility.
    explicit ScreenReader(pid_t program);

    // Everything there is now, parents before children; empty while the program is not known yet.
    [[nodiscard]] std::vector<AccessibleNode> Read() const;
    // The first that fulfils `condition` now.
    [[nodiscard]] std::optional<AccessibleNode> Find(const NodeCondition& condition) const;
    // As Find, but waits for it.
    [[nodiscard]] std::optional<AccessibleNode> WaitFor(const NodeCondition& condition,
                                                        Milliseconds patience = kPatience) const;
    // The text of the control with this given name. Throws std::runtime_error when there is none.
    [[nodiscard]] std::string LabelText(const std::string& id) const;
    // The tree with one line a control, for a failed test to show.
    [[nodiscard]] std::string Outline() const;

private:
    std::shared_ptr<_GDBusConnection> bus_;
    pid_t program_;
    // Where the labels that were asked for are on the bus: program and path. Searching takes long.
    mutable std::map<std::string, std::pair<std::string, std::string>> labels_;
};

} // namespace tarveth::harness
