// The lint's rules by name (lint_rules.def): constants for the code that
// reports or matches a rule, and the whole list for `validate --list-rules`.
#ifndef TOOLS_Q3A_TUNING_LINT_LINT_RULES_H_
#define TOOLS_Q3A_TUNING_LINT_LINT_RULES_H_

#include <string_view>

namespace q3a_tool {

// lint_rule::kDuplicateKey is "duplicate-key", and so on.
namespace lint_rule {
#define Q3A_LINT_RULE(id, name, summary) inline constexpr char id[] = name;
#include "tools/q3a_tuning/lint/lint_rules.def"
#undef Q3A_LINT_RULE
}  // namespace lint_rule

struct LintRuleInfo {
  std::string_view name;
  std::string_view summary;
};

inline constexpr LintRuleInfo kLintRules[] = {
#define Q3A_LINT_RULE(id, name, summary) {name, summary},
#include "tools/q3a_tuning/lint/lint_rules.def"
#undef Q3A_LINT_RULE
};

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_LINT_LINT_RULES_H_
