// One thing wrong with a tuning file, as validate and the other commands
// report it: on a line "FILE:LINE:COL: PATH: message", or as one object of
// the --json output.
#ifndef TOOLS_Q3A_TUNING_IO_PROBLEM_H_
#define TOOLS_Q3A_TUNING_IO_PROBLEM_H_

#include <string>
#include <vector>

namespace q3a_tool {

struct Problem {
  std::string file;
  int line = 0;  // 0 when the place in the file is not known
  int column = 0;
  std::string path;  // JSON path of the value, empty for the whole file
  std::string rule;
  std::string message;
};

// "FILE:LINE:COL: PATH: message", leaving out what is unknown.
std::string ProblemText(const Problem& problem);

// A JSON array of objects with the fields above.
std::string ProblemsJson(const std::vector<Problem>& problems);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_PROBLEM_H_
