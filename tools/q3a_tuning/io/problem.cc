#include "tools/q3a_tuning/io/problem.h"

#include <fmt/format.h>

#include "tools/q3a_tuning/io/json_text.h"

namespace q3a_tool {

std::string ProblemText(const Problem& problem) {
  std::string text = problem.file;
  if (problem.line > 0) {
    text += fmt::format(":{}:{}", problem.line, problem.column);
  }
  text += ": ";
  if (!problem.path.empty()) text += problem.path + ": ";
  return text + problem.message;
}

std::string ProblemsJson(const std::vector<Problem>& problems) {
  JsonText json;
  json.BeginArray();
  for (const Problem& problem : problems) {
    json.BeginObject();
    json.Key("file").String(problem.file);
    json.Key("line").Number(problem.line);
    json.Key("column").Number(problem.column);
    json.Key("path").String(problem.path);
    json.Key("rule").String(problem.rule);
    json.Key("message").String(problem.message);
    json.EndObject();
  }
  json.EndArray();
  return json.Text() + "\n";
}

}  // namespace q3a_tool
