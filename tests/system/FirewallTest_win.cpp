// The use of the Windows Firewall, against one whose rules the test writes.
#include "system/Firewall.h"
#include "system/FirewallRules_win.h"
#include "tests/system/ScriptedFirewall_win.h"

#include <gtest/gtest.h>

#include <optional>

namespace pevrix {
namespace {

constexpr wchar_t kProgram[] = L"C:\\Programme\\Pevrix ü\\pevrix.exe";
constexpr wchar_t kShouted[] = L"C:\\PROGRAMME\\PEVRIX Ü\\PEVRIX.EXE";

std::shared_ptr<Rule> makeRule(const wchar_t* program, long action,
                               const std::map<std::string, long>& others = {},
                               const char* failing = "")
{
    Rule rule{{{"Name", L"Query user"}}, others, failing};
    rule.texts["ApplicationName"] = program;
    rule.numbers.insert({{"Action", action},
                         {"Direction", NET_FW_RULE_DIR_IN},
                         {"Enabled", VARIANT_TRUE},
                         {"Profiles", NET_FW_PROFILE2_PRIVATE | NET_FW_PROFILE2_PUBLIC}});
    return std::make_shared<Rule>(rule);
}

std::shared_ptr<Rule> blockRule(const std::map<std::string, long>& others = {},
                                const char* failing = "")
{
    return makeRule(kProgram, NET_FW_ACTION_BLOCK, others, failing);
}

class FirewallTest : public testing::Test
{
protected:
    // The routines must leave the apartment as often as they enter it, and no object.
    ~FirewallTest() override
    {
        policy.reset();
        newRule.reset();
        EXPECT_EQ(script.living, 0);
        CoUninitialize();
        APTTYPE type{};
        APTTYPEQUALIFIER qualifier{};
        EXPECT_EQ(CoGetApartmentType(&type, &qualifier), CO_E_NOTINITIALIZED);
    }

    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    FirewallScript script;
    std::optional<ScriptedClass> policy{
        std::in_place, __uuidof(NetFwPolicy2), [this](HRESULT& result) -> IUnknown* {
            result = script.policyResult;
            return FAILED(result) ? nullptr : new ScriptedPolicy(script);
        }};
    std::optional<ScriptedClass> newRule{
        std::in_place, __uuidof(NetFwRule), [this](HRESULT&) -> IUnknown* {
            return new ScriptedRule(script,
                                    std::make_shared<Rule>(Rule{.failing = script.failing}));
        }};
};

TEST_F(FirewallTest, BlocksWhenAnActiveInboundRuleForTheProgramDoes)
{
    const auto other = makeRule(L"C:\\other.exe", NET_FW_ACTION_BLOCK);
    const auto allow = makeRule(kProgram, NET_FW_ACTION_ALLOW);
    const struct
    {
        const char* what;
        std::vector<std::shared_ptr<Rule>> rules;
        bool blocked;
    } rows[] = {
        {"no rules", {}, false},
        {"block", {blockRule()}, true},
        {"block, in other letter case", {makeRule(kShouted, NET_FW_ACTION_BLOCK)}, true},
        {"block, with a variable",
         {makeRule(L"%SystemDrive%\\Programme\\Pevrix ü\\pevrix.exe", NET_FW_ACTION_BLOCK)},
         true},
        {"allow", {allow}, false},
        {"block before allow", {blockRule(), allow}, true},
        {"allow before block", {allow, blockRule()}, true},
        {"another program, every program", {other, makeRule(L"", NET_FW_ACTION_BLOCK)}, false},
        {"disabled", {blockRule({{"Enabled", VARIANT_FALSE}})}, false},
        {"outbound", {blockRule({{"Direction", NET_FW_RULE_DIR_OUT}})}, false},
        {"on public networks", {blockRule({{"Profiles", NET_FW_PROFILE2_PUBLIC}})}, false},
        {"on all networks", {blockRule({{"Profiles", NET_FW_PROFILE2_ALL}})}, true},
        {"behind what is no rule", {nullptr, blockRule()}, true},
        {"action unreadable", {blockRule({}, "Action")}, false},
        {"direction unreadable", {blockRule({}, "Direction")}, false},
        {"state unreadable", {blockRule({}, "Enabled")}, false},
        {"profiles unreadable", {blockRule({}, "Profiles")}, false},
        {"behind an unreadable one", {blockRule({}, "ApplicationName"), blockRule()}, true},
    };
    for (const auto& row : rows) {
        script.rules = row.rules;
        EXPECT_EQ(isFirewallBlocking(kProgram), row.blocked) << row.what;
    }
    EXPECT_FALSE(isFirewallBlocking({}));
}

TEST_F(FirewallTest, DoesNothingWithAFirewallThatCannotBeAsked)
{
    for (HRESULT FirewallScript::* failing :
         {&FirewallScript::policyResult, &FirewallScript::rulesResult,
          &FirewallScript::profilesResult, &FirewallScript::listResult}) {
        script = {};
        script.rules = {blockRule()};
        script.*failing = E_FAIL;
        EXPECT_FALSE(isFirewallBlocking(kProgram));
        EXPECT_FALSE(hasApplicationRule(kProgram, L"Query user"));
    }
    script.policyResult = E_FAIL;
    EXPECT_FALSE(addApplicationRule(kProgram, L"Pevrix"));
}

TEST_F(FirewallTest, PutsOneRuleInThePlaceOfAllForTheProgram)
{
    const auto other = makeRule(L"C:\\other.exe", NET_FW_ACTION_BLOCK);
    other->texts["Name"] = L"Other";
    script.rules = {blockRule(), other, makeRule(kShouted, NET_FW_ACTION_ALLOW)};
    ASSERT_TRUE(addApplicationRule(kProgram, L"Pevrix"));

    ASSERT_EQ(script.rules.size(), 2U);
    EXPECT_EQ(script.rules[0], other);
    const Rule& rule = *script.rules[1];
    EXPECT_EQ(rule.texts, (std::map<std::string, std::wstring>{
                              {"Name", L"Pevrix"},
                              {"ApplicationName", kProgram},
                              {"Description", L"Lets your phone reach Pevrix on this PC."}}));
    EXPECT_EQ(rule.numbers, (std::map<std::string, long>{{"Protocol", 6},
                                                         {"Direction", 1},
                                                         {"Action", 1},
                                                         {"Profiles", 0x7FFFFFFF},
                                                         {"Enabled", VARIANT_TRUE}}));

    EXPECT_TRUE(hasApplicationRule(kShouted, L"Pevrix"));
    EXPECT_FALSE(hasApplicationRule(kProgram, L"Other"));
    EXPECT_FALSE(hasApplicationRule(L"C:\\other.exe", L"Other")) << "it blocks";
}

TEST_F(FirewallTest, GivesUpRemovingRulesThatStay)
{
    script.rules = {blockRule()};
    script.rulesStay = true;
    EXPECT_TRUE(addApplicationRule(kProgram, L"Pevrix"));
    EXPECT_LT(script.removals, 100);
    EXPECT_EQ(script.rules.size(), 2U);
}

// Windows names the rules of its own question by the program's description.
TEST_F(FirewallTest, SparesARuleOfAnotherProgramWithTheSameName)
{
    const auto other = makeRule(L"D:\\pevrix.exe", NET_FW_ACTION_ALLOW);
    script.rules = {other, blockRule(), blockRule()};
    ASSERT_TRUE(addApplicationRule(kProgram, L"Pevrix"));
    ASSERT_EQ(script.rules.size(), 2U);
    EXPECT_EQ(script.rules[0], other);
    EXPECT_EQ(other->texts["Name"], L"Query user");
}

TEST_F(FirewallTest, AddsNoIncompleteRule)
{
    script.rules = {blockRule()};
    EXPECT_FALSE(addApplicationRule(kProgram, L""));
    EXPECT_FALSE(addApplicationRule({}, L"Pevrix"));
    EXPECT_EQ(script.rules.size(), 1U);

    script.rules.clear();
    for (const char* failing : {"Name", "ApplicationName", "Description", "Protocol", "Direction",
                                "Action", "Profiles", "Enabled"}) {
        script.failing = failing;
        EXPECT_FALSE(addApplicationRule(kProgram, L"Pevrix")) << failing;
    }
    script.failing.clear();
    script.addResult = E_ACCESSDENIED;
    EXPECT_FALSE(addApplicationRule(kProgram, L"Pevrix"));
    EXPECT_TRUE(script.rules.empty());
}

} // namespace
} // namespace pevrix
