// One self-contained HTML page about an AWB container: its registration and
// table versions, the findings of validation, and per table the pictures
// and, where a tuning file is compared with the container's table, the
// field-by-field differences. Inline CSS and SVG only (no scripts, nothing
// fetched), laid out for a laptop screen and for printing to PDF. Every text
// is HTML-escaped here; pictures are inserted as given.
#ifndef TOOLS_Q3A_TUNING_PLOT_HTML_REPORT_H_
#define TOOLS_Q3A_TUNING_PLOT_HTML_REPORT_H_

#include <string>
#include <vector>

#include "tools/q3a_tuning/io/diagnostic.h"
#include "tools/q3a_tuning/io/record_diff.h"

namespace q3a_tool {

struct ReportTableRow {
  std::string table;    // "basic"
  std::string label;    // the registry's label, "B3"
  std::string version;  // "3.1"
  std::string shared_with;    // the other containers that hold it
  std::string same_bytes_as;  // labels of other tables with its very bytes
  std::string compared_with;  // the tuning file, if any
};

struct ReportFinding {
  std::string table;
  // Its file is the finding's source: the container or a tuning file.
  Diagnostic diagnostic;
};

struct ReportSection {
  std::string id;       // "basic": the section's anchor
  std::string heading;  // "basic table 3.1 of container 0,-1,1,0,-1"
  bool compared = false;
  std::string compared_note;  // what against what
  std::vector<Difference> differences;
  std::vector<std::string> figures;  // <svg> elements
};

struct ReportData {
  std::string key;
  std::vector<std::string> registrations;  // "awb 0,-1,1,0,-1: label"
  std::vector<ReportTableRow> tables;
  std::vector<ReportFinding> findings;
  std::vector<ReportSection> sections;
};

// Differences listed per section at most; the count says how many more.
inline constexpr std::size_t kReportDiffLimit = 400;

std::string RenderHtmlReport(const ReportData& data);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_PLOT_HTML_REPORT_H_
