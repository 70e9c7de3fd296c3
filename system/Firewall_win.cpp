#include "system/Com_win.h"
#include "system/Firewall.h"
#include "system/FirewallRules_win.h"

#include <algorithm>
#include <array>
#include <vector>
#include <wrl/client.h>

namespace pevrix {
namespace {

using Microsoft::WRL::ComPtr;

// Rules are removed by name. Several rules may have the same name, and each call removes one of
// them.
constexpr int kRemovalPasses = 16;

constexpr int kGuidCharacters = 39; // with braces and the closing zero

class FirewallSession
{
public:
    FirewallSession()
        : m_open(m_apartment.usable() &&
                 SUCCEEDED(CoCreateInstance(__uuidof(NetFwPolicy2), nullptr, CLSCTX_INPROC_SERVER,
                                            IID_PPV_ARGS(&m_policy))) &&
                 SUCCEEDED(m_policy->get_Rules(&m_rules)))
    {}

    // What follows must not be called otherwise.
    [[nodiscard]] bool isOpen() const { return m_open; }

    [[nodiscard]] INetFwRules& rules() const { return *m_rules.Get(); }

    // The kinds of network that the computer is in, as bits. False when they are unknown.
    [[nodiscard]] bool readCurrentProfiles(LONG& profiles) const
    {
        return SUCCEEDED(m_policy->get_CurrentProfileTypes(&profiles));
    }

private:
    Apartment m_apartment; // first, because it must outlive the objects
    ComPtr<INetFwPolicy2> m_policy;
    ComPtr<INetFwRules> m_rules;
    const bool m_open; // last, because opening fills the others
};

bool equalIgnoringCase(std::wstring_view a, std::wstring_view b)
{
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

// The firewall's own console writes paths as %ProgramFiles%\... Empty when it has no variable.
std::wstring expanded(std::wstring_view path)
{
    if (path.find(L'%') == std::wstring_view::npos) {
        return {};
    }
    const std::wstring from(path);
    std::wstring to(ExpandEnvironmentStringsW(from.c_str(), nullptr, 0), L'\0');
    const DWORD size =
        ExpandEnvironmentStringsW(from.c_str(), to.data(), static_cast<DWORD>(to.size()));
    to.resize(size > 0 && size <= to.size() ? size - 1 : 0);
    return to;
}

bool isFor(INetFwRule& rule, const std::wstring& applicationPath)
{
    Bstr application;
    return SUCCEEDED(rule.get_ApplicationName(application.put())) &&
           (equalIgnoringCase(application.view(), applicationPath) ||
            equalIgnoringCase(expanded(application.view()), applicationPath));
}

// Calls `visit` with each rule. False when the rules cannot be listed.
template <typename Visit>
bool visitAllRules(INetFwRules& rules, Visit visit)
{
    ComPtr<IUnknown> list;
    ComPtr<IEnumVARIANT> items;
    if (FAILED(rules.get__NewEnum(&list)) || list == nullptr || FAILED(list.As(&items))) {
        return false;
    }
    for (;;) {
        Variant item;
        ULONG count = 0;
        if (items->Next(1, item.put(), &count) != S_OK || count != 1) {
            return true;
        }
        ComPtr<INetFwRule> rule;
        if (item.object() != nullptr &&
            SUCCEEDED(item.object()->QueryInterface(IID_PPV_ARGS(&rule)))) {
            visit(*rule.Get());
        }
    }
}

// The same with the rules for this program.
template <typename Visit>
bool visitRules(INetFwRules& rules, const std::wstring& applicationPath, Visit visit)
{
    return visitAllRules(rules, [&](INetFwRule& rule) {
        if (isFor(rule, applicationPath)) {
            visit(rule);
        }
    });
}

// Whether the rule does this to incoming connections, now, in one of these kinds of network.
bool acts(INetFwRule& rule, NET_FW_ACTION action, LONG profiles)
{
    NET_FW_ACTION ruleAction{};
    NET_FW_RULE_DIRECTION direction{};
    VARIANT_BOOL enabled = VARIANT_FALSE;
    LONG ruleProfiles = 0;
    return SUCCEEDED(rule.get_Action(&ruleAction)) && SUCCEEDED(rule.get_Direction(&direction)) &&
           SUCCEEDED(rule.get_Enabled(&enabled)) && SUCCEEDED(rule.get_Profiles(&ruleProfiles)) &&
           ruleAction == action && direction == NET_FW_RULE_DIR_IN && enabled == VARIANT_TRUE &&
           (ruleProfiles & profiles) != 0;
}

bool putText(INetFwRule& rule, HRESULT (STDMETHODCALLTYPE INetFwRule::*put)(BSTR),
             const std::wstring& text)
{
    const Bstr value(text);
    return value.get() != nullptr && SUCCEEDED((rule.*put)(value.get()));
}

// A rule that did not take all of its values is not added: without its program, for example, it
// would open every port of the computer.
bool addRule(INetFwRules& rules, const FirewallRule& values)
{
    ComPtr<INetFwRule> rule;
    return SUCCEEDED(CoCreateInstance(__uuidof(NetFwRule), nullptr, CLSCTX_INPROC_SERVER,
                                      IID_PPV_ARGS(&rule))) &&
           putText(*rule.Get(), &INetFwRule::put_Name, values.name) &&
           putText(*rule.Get(), &INetFwRule::put_ApplicationName, values.applicationName) &&
           putText(*rule.Get(), &INetFwRule::put_Description, values.description) &&
           SUCCEEDED(rule->put_Protocol(values.protocol)) &&
           SUCCEEDED(rule->put_Direction(values.direction)) &&
           SUCCEEDED(rule->put_Action(values.action)) &&
           SUCCEEDED(rule->put_Profiles(values.profiles)) &&
           SUCCEEDED(rule->put_Enabled(values.enabled)) && SUCCEEDED(rules.Add(rule.Get()));
}

struct NamedRule
{
    ComPtr<INetFwRule> rule;
    std::wstring name;
};

// Gives the rule a name of its own where a rule of another program has the same: that one might be
// taken out in its place. A rule that keeps its name goes by it.
void tellApart(NamedRule& rule, const std::vector<std::wstring>& others)
{
    const auto isShared = [&](const std::wstring& other) {
        return equalIgnoringCase(other, rule.name);
    };
    GUID unique{};
    std::array<wchar_t, kGuidCharacters> text{};
    if (std::ranges::any_of(others, isShared) && SUCCEEDED(CoCreateGuid(&unique)) &&
        StringFromGUID2(unique, text.data(), kGuidCharacters) == kGuidCharacters &&
        putText(*rule.rule.Get(), &INetFwRule::put_Name, text.data())) {
        rule.name = text.data();
    }
}

// Removes the rules for this program, whatever they do, as far as the firewall lets go of them.
void removeRules(INetFwRules& rules, const std::wstring& applicationPath)
{
    for (int pass = 0; pass < kRemovalPasses; ++pass) {
        std::vector<NamedRule> ours;
        std::vector<std::wstring> others;
        visitAllRules(rules, [&](INetFwRule& rule) {
            Bstr name;
            if (FAILED(rule.get_Name(name.put()))) {
                return;
            }
            if (isFor(rule, applicationPath)) {
                ours.push_back({&rule, std::wstring(name.view())});
            } else {
                others.emplace_back(name.view());
            }
        });
        if (ours.empty()) {
            return;
        }
        for (NamedRule& rule : ours) {
            tellApart(rule, others);
            rules.Remove(Bstr(rule.name).get());
        }
    }
}

} // namespace

bool isFirewallBlocking(const std::filesystem::path& applicationPath)
{
    if (applicationPath.empty()) {
        return false;
    }
    const FirewallSession session;
    LONG profiles = 0;
    if (!session.isOpen() || !session.readCurrentProfiles(profiles)) {
        return false;
    }
    bool blocking = false;
    visitRules(session.rules(), applicationPath.native(), [&](INetFwRule& rule) {
        blocking = acts(rule, NET_FW_ACTION_BLOCK, profiles) || blocking;
    });
    return blocking;
}

bool addApplicationRule(const std::filesystem::path& applicationPath, const std::wstring& ruleName)
{
    if (applicationPath.empty() || ruleName.empty()) {
        return false;
    }
    const FirewallSession session;
    if (!session.isOpen()) {
        return false;
    }
    // The new rule is wanted even if old ones could not be removed.
    removeRules(session.rules(), applicationPath.native());
    return addRule(session.rules(), {ruleName, applicationPath.native()});
}

bool hasApplicationRule(const std::filesystem::path& applicationPath, const std::wstring& ruleName)
{
    const FirewallSession session;
    bool found = false;
    if (session.isOpen() && !applicationPath.empty()) {
        visitRules(session.rules(), applicationPath.native(), [&](INetFwRule& rule) {
            Bstr name;
            found = found || (SUCCEEDED(rule.get_Name(name.put())) && name.view() == ruleName &&
                              acts(rule, NET_FW_ACTION_ALLOW, NET_FW_PROFILE2_ALL));
        });
    }
    return found;
}

} // namespace pevrix
