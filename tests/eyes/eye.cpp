#include "tests/eyes/eye.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>
#include <string>

#include "framework/dpi_awareness.h"
#include "tests/eyes/accessibility.h"
#include "tests/eyes/kinds.h"
#include "tests/eyes/text_room.h"

namespace vmk::test {
namespace {

// Edges that differ by less than this look as if they were meant to be the same. In pixels of 96 dots per
// inch.
constexpr int kNearlySame = 2;

// Of a group box, where no theme draws it; the same at every resolution.
constexpr int kFrameLine = 2;

class Eye {
  public:
    Eye(const View& view, const Sight& sight, Report& report)
        : m_view(view),
          m_sight(sight),
          m_report(report),
          m_controls(ControlsOf(view.view, view.except)),
          m_groups(GroupsOf(m_controls)) {}

    void Look() {
        // Also of what there is none to look at.
        for (const char* const kind : eye::kAll) m_report.looked[kind] += 0;
        FindCutTexts();
        FindWhatIsOutside();
        FindOverlaps();
        FindLeftEdges();
        FindBaselines();
        FindSpacing();
        FindTabOrder();
        FindNameless();
        FindSameKeys();
    }

  private:
    void Note(const char* kind) { ++m_report.looked[kind]; }
    void Add(const char* kind, const Control& control, const std::wstring& text, int needed = 0,
             int has = 0) {
        m_report.findings.push_back({.sight = m_sight,
                                     .id = control.id,
                                     .className = control.className,
                                     .kind = kind,
                                     .text = text,
                                     .needed = needed,
                                     .has = has,
                                     .window = control.window});
    }
    void Compare(const char* kind, const Control& control, int needed, int has, int tolerance) {
        Note(kind);
        if (std::abs(needed - has) > tolerance) Add(kind, control, control.text, needed, has);
    }

    void FindCutTexts() {
        for (const Control& control : m_controls) {
            for (const Room& room : TextRooms(control)) {
                Note(room.kind);
                const bool tooWide = room.needed.cx > room.has.cx;
                if (tooWide)
                    Add(room.kind, control, room.text, room.needed.cx, room.has.cx);
                else if (room.IsTooSmall())
                    Add(room.kind, control, room.text, room.needed.cy, room.has.cy);
            }
        }
    }

    // A control has to be inside of each window around it, and of its group box.
    void FindWhatIsOutside() {
        for (const Control& control : m_controls) {
            Note(eye::kOutside);
            if (!IsInsideOfParents(control)) Add(eye::kOutside, control, control.text);
        }
        for (const Group& group : m_groups) {
            for (const Control* member : group.members) {
                if (group.box && !Contains(group.box->place, member->place))
                    Add(eye::kOutside, *member, member->text);
            }
            if (group.box) FindWhatCovers(*group.box);
        }
    }

    // A container paints its background over the line of a group box.
    void FindWhatCovers(const Control& box) {
        RECT inside = box.place;
        InflateRect(&inside, -kFrameLine, -kFrameLine);
        for (HWND container : ContainersOf(m_view.view, m_view.except)) {
            const RECT place = PlaceIn(container, m_view.view);
            if (Overlap(box.place, place) && !Contains(inside, place)) Add(eye::kOutside, box, box.text);
        }
    }

    bool IsInsideOfParents(const Control& control) const {
        HWND parent = control.window;
        do {
            parent = GetAncestor(parent, GA_PARENT);
            RECT client{};
            GetClientRect(parent, &client);
            if (!Contains(client, PlaceIn(control.window, parent))) return false;
        } while (parent != m_view.view);
        return true;
    }

    // The title of a group box is text like any other; the rest of the box surrounds what is in it.
    static RECT Solid(const Control& control) {
        RECT place = control.place;
        if (control.Is(ControlKind::kGroupBox)) {
            const std::vector<Room> title = TextRooms(control);
            place.bottom = place.top + (control.text.empty() ? 0 : title.front().needed.cy);
        }
        return place;
    }

    static bool AreOne(const Control& one, const Control& other) {
        const auto isSpinOf = [](const Control& spin, const Control& box) {
            return spin.Is(ControlKind::kSpin) &&
                   reinterpret_cast<HWND>(SendMessageW(spin.window, UDM_GETBUDDY, 0, 0)) == box.window;
        };
        return isSpinOf(one, other) || isSpinOf(other, one);
    }

    void FindOverlaps() {
        for (std::size_t at = 0; at < m_controls.size(); ++at) {
            for (std::size_t next = at + 1; next < m_controls.size(); ++next) {
                const Control& one = m_controls[at];
                const Control& other = m_controls[next];
                Note(eye::kOverlap);
                const bool meet = Overlap(Solid(one), Solid(other)) || BoxesCross(one, other);
                if (meet && !AreOne(one, other)) Add(eye::kOverlap, other, other.text + L" / " + one.text);
            }
        }
    }

    static bool BoxesCross(const Control& one, const Control& other) {
        return one.Is(ControlKind::kGroupBox) && other.Is(ControlKind::kGroupBox) &&
               Overlap(one.place, other.place) && !Contains(one.place, other.place) &&
               !Contains(other.place, one.place);
    }

    void FindLeftEdges() {
        for (const Group& group : m_groups) {
            std::map<int, const Control*> edges;
            for (const Control* member : group.members) {
                if (member->Is(ControlKind::kSpin)) continue;
                Note(eye::kLeftEdge);
                edges.emplace(member->place.left, member);
            }
            for (auto edge = edges.begin(); edge != edges.end(); ++edge) {
                const auto next = std::next(edge);
                if (next != edges.end() && next->first - edge->first <= Scaled(kNearlySame))
                    Add(eye::kLeftEdge, *next->second, next->second->text, edge->first, next->first);
            }
        }
    }

    // The box or list beside a label, a check box or a radio button: the next one, which it names, or the one
    // before it, with arrows between them. Null: none.
    const Control* CompanionOf(std::size_t label) const {
        const Control& one = m_controls[label];
        const auto hasTextLine = [](const Control& control) {
            return control.Is(ControlKind::kEdit) || control.Is(ControlKind::kDropDownList) ||
                   control.Is(ControlKind::kComboBox);
        };
        const auto isBeside = [&](const Control& control) {
            return hasTextLine(control) && ShareRow(one.place, control.place);
        };
        if (label + 1 < m_controls.size() && isBeside(m_controls[label + 1])) return &m_controls[label + 1];
        for (std::size_t before = label; before-- > 0;) {
            if (isBeside(m_controls[before])) return &m_controls[before];
            if (!m_controls[before].Is(ControlKind::kSpin)) break;
        }
        return nullptr;
    }

    void FindBaselines() {
        for (std::size_t at = 0; at < m_controls.size(); ++at) {
            const Control& label = m_controls[at];
            if (!label.Is(ControlKind::kLabel) && !label.Is(ControlKind::kCheckBox) &&
                !label.Is(ControlKind::kRadioButton))
                continue;
            const Control* companion = CompanionOf(at);
            if (companion)
                Compare(eye::kBaseline, label, BaselineOf(*companion, m_view.view),
                        BaselineOf(label, m_view.view), 1);
        }
    }

    // A group's rows, each by the control that it begins with.
    static std::vector<const Control*> RowsOf(const Group& group) {
        std::vector<const Control*> members;
        for (const Control* member : group.members) {
            if (member->IsUsed() && !member->Is(ControlKind::kSpin)) members.push_back(member);
        }
        std::ranges::stable_sort(members, {}, [](const Control* member) { return member->place.top; });
        std::vector<const Control*> rows;
        for (const Control* member : members) {
            if (rows.empty() || !ShareRow(rows.back()->place, member->place)) {
                rows.push_back(member);
            } else if (member->place.left < rows.back()->place.left) {
                rows.back() = member;
            }
        }
        return rows;
    }

    // Rows of one kind that follow one another have to be equally far apart. What differs by more than looks
    // like a mistake is meant to.
    void FindSpacing() {
        for (const Group& group : m_groups) {
            const std::vector<const Control*> rows = RowsOf(group);
            for (std::size_t at = 2; at < rows.size(); ++at) {
                const Control& last = *rows[at];
                if (rows[at - 2]->kind != last.kind || rows[at - 1]->kind != last.kind) continue;
                Note(eye::kSpacing);
                const int before = Distance(*rows[at - 2], *rows[at - 1]);
                const int now = Distance(*rows[at - 1], last);
                const int difference = std::abs(now - before);
                // Rounding to pixels explains one.
                if (difference > 1 && difference <= 2 * Scaled(kNearlySame))
                    Add(eye::kSpacing, last, last.text, before, now);
            }
        }
    }

    // Between the middles, where the texts are.
    static int Distance(const Control& upper, const Control& lower) {
        return (lower.place.top + lower.place.bottom - upper.place.top - upper.place.bottom) / 2;
    }

    void FindTabOrder() {
        for (const Group& group : m_groups) {
            const Control* before = nullptr;
            for (const Control* member : group.members) {
                if (!member->IsUsed() || member->Is(ControlKind::kSpin)) continue;
                // Each dialog has an order of its own; which of them comes first matters less in a ring.
                if (before && GetParent(before->window) == GetParent(member->window)) {
                    Note(eye::kTabOrder);
                    if (IsReadBefore(member->place, before->place))
                        Add(eye::kTabOrder, *member, member->text + L" / " + before->text);
                }
                before = member;
            }
        }
    }

    // Above and not in a column further right, or in the same row further left.
    static bool IsReadBefore(const RECT& one, const RECT& other) {
        if (ShareRow(one, other)) return one.right <= other.left;
        return one.bottom <= other.top && one.left < other.right;
    }

    void FindNameless() {
        for (const Control& control : m_controls) {
            if (!control.IsUsed()) continue;
            Note(eye::kNoName);
            if (!NameOf(control.window).empty()) continue;
            Add(eye::kNoName, control, control.text);
        }
    }

    void FindSameKeys() {
        std::map<wchar_t, std::wstring> keys;
        for (HWND button : m_view.buttons) keys.emplace(AccessKeyOf(TextOf(button)), TextOf(button));
        for (const Control& control : m_controls) {
            const bool isShown = control.Is(ControlKind::kLabel) && (control.style & SS_NOPREFIX);
            const bool isTyped = control.Is(ControlKind::kEdit) || control.Is(ControlKind::kComboBox) ||
                                 control.Is(ControlKind::kDropDownList);
            const wchar_t key = isShown || isTyped ? L'\0' : AccessKeyOf(control.text);
            if (key == L'\0') continue;
            Note(eye::kSameKey);
            const auto [first, isNew] = keys.emplace(key, control.text);
            if (!isNew) Add(eye::kSameKey, control, control.text + L" / " + first->second);
        }
    }

    const View& m_view;
    const Sight& m_sight;
    Report& m_report;
    std::vector<Control> m_controls;
    std::vector<Group> m_groups;
};

}  // namespace

void LookAt(const View& view, const Sight& sight, Report& report) {
    const SystemDpiAwareness dpiAwareness;
    Eye(view, sight, report).Look();
}

}  // namespace vmk::test
