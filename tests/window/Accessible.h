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
    int depth = 0;                // 0 for the program itself
    std::string id;               // the given name of the control, such as "lblMessage"; empty if it has none
    std::string role;             // "label", "menu item", "push button" ...
    std::string name;             // what is read out first; a label's is its text
    std::string description;      // what is read out after it
    std::string text;             // the text in it, for labels and text boxes
    std::set<std::string> states; // "showing", "focused", "checked", "sensitive" ...
    // The place on the screen in the toolkit's units (half the pixels with GDK_SCALE=2); all zero while the
    // control is not shown.
    Rect extents;

    [[nodiscard]] bool Has(const std::string& state) const { return states.contains(state); }
};

using NodeCondition = std::function<bool(const AccessibleNode&)>;

// Give conditions for Find.
NodeCondition WithId(std::string id);
NodeCondition WithName(std::string name);
NodeCondition WithRole(std::string role);
NodeCondition WithRoleAndName(std::string role, std::string name);

class ScreenReader {
public:
    // Connects to the program with this process id. Throws std::runtime_error when there is no accessibility
    // bus.
    explicit ScreenReader(pid_t program);

    // Gives all current nodes, parents before children; empty while the program is not on the bus yet.
    [[nodiscard]] std::vector<AccessibleNode> Read() const;
    // Gives the first current node that fulfils `condition`.
    [[nodiscard]] std::optional<AccessibleNode> Find(const NodeCondition& condition) const;
    // Waits for a node that fulfils `condition`.
    [[nodiscard]] std::optional<AccessibleNode> WaitFor(const NodeCondition& condition,
                                                        Milliseconds patience = kPatience) const;
    // Gives the text of the control with this given name. Throws std::runtime_error when there is none.
    [[nodiscard]] std::string LabelText(const std::string& id) const;
    // Gives the tree as text, one line for each control, for failure messages.
    [[nodiscard]] std::string Outline() const;

private:
    std::shared_ptr<_GDBusConnection> bus_;
    pid_t program_;
    // A cache of the addresses (program and path on the bus) of the labels that were asked for, since
    // searching for them is slow.
    mutable std::map<std::string, std::pair<std::string, std::string>> labels_;
};

} // namespace tarveth::harness
