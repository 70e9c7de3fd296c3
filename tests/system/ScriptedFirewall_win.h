#pragma once

#include "tests/support/ScriptedClass_win.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>
// After windows.h, whose types it uses.
#include <netfw.h>

namespace pevrix {

// A rule of the scripted firewall: its values by the names of INetFwRule's properties.
struct Rule
{
    std::map<std::string, std::wstring> texts{};
    std::map<std::string, long> numbers{};
    std::string failing{}; // the property that can be neither read nor written
};

// What the scripted firewall shall do, and what was done with it.
struct FirewallScript
{
    HRESULT policyResult = S_OK;
    HRESULT rulesResult = S_OK;
    HRESULT profilesResult = S_OK;
    HRESULT listResult = S_OK;
    HRESULT addResult = S_OK;
    std::string failing{}; // property of a new rule
    LONG profiles = NET_FW_PROFILE2_PRIVATE;
    bool rulesStay = false;                     // whatever is removed
    std::vector<std::shared_ptr<Rule>> rules{}; // null: something that is none

    int removals = 0;
    int living = 0; // objects
};

// The part of IDispatch that nobody calls.
template <typename Interface>
class ScriptedObject : public CountedObject<Interface>
{
public:
    explicit ScriptedObject(FirewallScript& script)
        : m_script(script)
    {
        ++m_script.living;
    }
    ~ScriptedObject() override { --m_script.living; }

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) override
    {
        return E_NOTIMPL;
    }

protected:
    FirewallScript& m_script;
};

class ScriptedRule final : public ScriptedObject<INetFwRule>
{
public:
    ScriptedRule(FirewallScript& script, std::shared_ptr<Rule> rule)
        : ScriptedObject(script)
        , m_rule(std::move(rule))
    {}

    [[nodiscard]] const std::shared_ptr<Rule>& rule() const { return m_rule; }

#define PEVRIX_PROPERTY(NAME, TYPE)                                                                \
    STDMETHODIMP get_##NAME(TYPE* value) override { return get(#NAME, value); }                    \
    STDMETHODIMP put_##NAME(TYPE value) override { return put(#NAME, value); }
    PEVRIX_PROPERTY(Name, BSTR)
    PEVRIX_PROPERTY(Description, BSTR)
    PEVRIX_PROPERTY(ApplicationName, BSTR)
    PEVRIX_PROPERTY(ServiceName, BSTR)
    PEVRIX_PROPERTY(Protocol, LONG)
    PEVRIX_PROPERTY(LocalPorts, BSTR)
    PEVRIX_PROPERTY(RemotePorts, BSTR)
    PEVRIX_PROPERTY(LocalAddresses, BSTR)
    PEVRIX_PROPERTY(RemoteAddresses, BSTR)
    PEVRIX_PROPERTY(IcmpTypesAndCodes, BSTR)
    PEVRIX_PROPERTY(Direction, NET_FW_RULE_DIRECTION)
    PEVRIX_PROPERTY(Interfaces, VARIANT)
    PEVRIX_PROPERTY(InterfaceTypes, BSTR)
    PEVRIX_PROPERTY(Enabled, VARIANT_BOOL)
    PEVRIX_PROPERTY(Grouping, BSTR)
    PEVRIX_PROPERTY(Profiles, LONG)
    PEVRIX_PROPERTY(EdgeTraversal, VARIANT_BOOL)
    PEVRIX_PROPERTY(Action, NET_FW_ACTION)
#undef PEVRIX_PROPERTY

private:
    template <typename Value>
    HRESULT get(const char* name, Value* value)
    {
        if (m_rule->failing == name) {
            return E_FAIL;
        }
        if constexpr (std::is_same_v<Value, BSTR>) {
            const auto& text = m_rule->texts[name];
            *value = text.empty() ? nullptr : SysAllocString(text.c_str());
        } else if constexpr (!std::is_same_v<Value, VARIANT>) {
            *value = static_cast<Value>(m_rule->numbers[name]);
        }
        return S_OK;
    }

    template <typename Value>
    HRESULT put(const char* name, Value value)
    {
        if (m_rule->failing == name) {
            return E_FAIL;
        }
        if constexpr (std::is_same_v<Value, BSTR>) {
            m_rule->texts[name] = value;
        } else if constexpr (!std::is_same_v<Value, VARIANT>) {
            m_rule->numbers[name] = value;
        }
        return S_OK;
    }

    const std::shared_ptr<Rule> m_rule;
};

class ScriptedList final : public CountedObject<IEnumVARIANT>
{
public:
    explicit ScriptedList(FirewallScript& script)
        : m_script(script)
    {
        ++m_script.living;
    }
    ~ScriptedList() override { --m_script.living; }

    STDMETHODIMP Next(ULONG, VARIANT* item, ULONG* fetched) override
    {
        *fetched = m_next < m_script.rules.size() ? 1 : 0;
        if (*fetched == 0) {
            return S_FALSE;
        }
        const auto rule = m_script.rules[m_next++];
        V_VT(item) = rule == nullptr ? VT_I4 : VT_DISPATCH;
        if (rule == nullptr) {
            V_I4(item) = 1;
        } else {
            V_DISPATCH(item) = new ScriptedRule(m_script, rule);
        }
        return S_OK;
    }
    STDMETHODIMP Skip(ULONG) override { return E_NOTIMPL; }
    STDMETHODIMP Reset() override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

private:
    FirewallScript& m_script;
    std::size_t m_next = 0;
};

class ScriptedRules final : public ScriptedObject<INetFwRules>
{
public:
    using ScriptedObject::ScriptedObject;

    STDMETHODIMP get_Count(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP Add(INetFwRule* rule) override
    {
        if (SUCCEEDED(m_script.addResult)) {
            m_script.rules.push_back(static_cast<ScriptedRule*>(rule)->rule());
        }
        return m_script.addResult;
    }
    STDMETHODIMP Remove(BSTR name) override
    {
        ++m_script.removals;
        const auto found = std::ranges::find_if(
            m_script.rules, [&](const auto& rule) { return rule->texts["Name"] == name; });
        if (m_script.rulesStay || found == m_script.rules.end()) {
            return E_FAIL;
        }
        m_script.rules.erase(found);
        return S_OK;
    }
    STDMETHODIMP Item(BSTR, INetFwRule**) override { return E_NOTIMPL; }
    STDMETHODIMP get__NewEnum(IUnknown** list) override
    {
        *list = FAILED(m_script.listResult) ? nullptr : new ScriptedList(m_script);
        return m_script.listResult;
    }
};

class ScriptedPolicy final : public ScriptedObject<INetFwPolicy2>
{
public:
    using ScriptedObject::ScriptedObject;
    using Profile = NET_FW_PROFILE_TYPE2;

    STDMETHODIMP get_CurrentProfileTypes(LONG* profiles) override
    {
        *profiles = m_script.profiles;
        return m_script.profilesResult;
    }
    STDMETHODIMP get_Rules(INetFwRules** rules) override
    {
        *rules = FAILED(m_script.rulesResult) ? nullptr : new ScriptedRules(m_script);
        return m_script.rulesResult;
    }

    // What nobody calls.
#define PEVRIX_UNUSED(NAME, ...)                                                                   \
    STDMETHODIMP NAME(__VA_ARGS__) override { return E_NOTIMPL; }
    PEVRIX_UNUSED(get_FirewallEnabled, Profile, VARIANT_BOOL*)
    PEVRIX_UNUSED(put_FirewallEnabled, Profile, VARIANT_BOOL)
    PEVRIX_UNUSED(get_ExcludedInterfaces, Profile, VARIANT*)
    PEVRIX_UNUSED(put_ExcludedInterfaces, Profile, VARIANT)
    PEVRIX_UNUSED(get_BlockAllInboundTraffic, Profile, VARIANT_BOOL*)
    PEVRIX_UNUSED(put_BlockAllInboundTraffic, Profile, VARIANT_BOOL)
    PEVRIX_UNUSED(get_NotificationsDisabled, Profile, VARIANT_BOOL*)
    PEVRIX_UNUSED(put_NotificationsDisabled, Profile, VARIANT_BOOL)
    PEVRIX_UNUSED(get_UnicastResponsesToMulticastBroadcastDisabled, Profile, VARIANT_BOOL*)
    PEVRIX_UNUSED(put_UnicastResponsesToMulticastBroadcastDisabled, Profile, VARIANT_BOOL)
    PEVRIX_UNUSED(get_ServiceRestriction, INetFwServiceRestriction**)
    PEVRIX_UNUSED(EnableRuleGroup, LONG, BSTR, VARIANT_BOOL)
    PEVRIX_UNUSED(IsRuleGroupEnabled, LONG, BSTR, VARIANT_BOOL*)
    PEVRIX_UNUSED(RestoreLocalFirewallDefaults)
    PEVRIX_UNUSED(get_DefaultInboundAction, Profile, NET_FW_ACTION*)
    PEVRIX_UNUSED(put_DefaultInboundAction, Profile, NET_FW_ACTION)
    PEVRIX_UNUSED(get_DefaultOutboundAction, Profile, NET_FW_ACTION*)
    PEVRIX_UNUSED(put_DefaultOutboundAction, Profile, NET_FW_ACTION)
    PEVRIX_UNUSED(get_IsRuleGroupCurrentlyEnabled, BSTR, VARIANT_BOOL*)
    PEVRIX_UNUSED(get_LocalPolicyModifyState, NET_FW_MODIFY_STATE*)
#undef PEVRIX_UNUSED
};

} // namespace pevrix
