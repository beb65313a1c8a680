#include "tools/q3a_tuning/plot/html_report.h"

#include <fmt/format.h>

#include "tools/q3a_tuning/plot/svg_canvas.h"

namespace q3a_tool {
namespace {

constexpr std::string_view kStyle = R"css(
:root { color-scheme: light; }
body { font: 15px/1.45 system-ui, sans-serif; color: #1d1d1f; margin: 0;
       background: #f4f5f7; }
header { background: #20304a; color: #fff; padding: 18px 28px; }
header h1 { margin: 0 0 4px; font-size: 22px; }
header p { margin: 0; opacity: .85; }
nav { padding: 8px 28px; background: #e7eaf0; font-size: 14px; }
nav a { margin-right: 16px; color: #20304a; }
main { max-width: 1180px; margin: 0 auto; padding: 8px 20px 40px; }
section { background: #fff; border-radius: 6px; padding: 12px 20px 18px;
          margin: 18px 0; box-shadow: 0 1px 3px rgba(0,0,0,.08); }
h2 { font-size: 18px; margin: 6px 0 10px; }
table { border-collapse: collapse; width: 100%; font-size: 13px; }
th, td { text-align: left; padding: 4px 8px; border-bottom: 1px solid #e3e3e3;
         vertical-align: top; }
th { background: #f0f2f5; }
td.path, td.value { font-family: ui-monospace, monospace; word-break: break-all; }
td.old { color: #9b1c1c; } td.new { color: #116329; }
.ok { color: #116329; } .bad { color: #9b1c1c; }
.diff { max-height: 420px; overflow: auto; margin-bottom: 12px;
        border: 1px solid #e3e3e3; }
svg.figure, .figures > svg { max-width: 100%; height: auto; display: block;
                             margin: 10px 0; }
.note { color: #555; font-size: 13px; }
@media print {
  body { background: #fff; font-size: 11pt; }
  nav { display: none; }
  header { background: none; color: #000; border-bottom: 2px solid #000;
           padding: 0 0 8px; }
  main { max-width: none; padding: 0; }
  section { box-shadow: none; border-radius: 0; padding: 0; margin: 0 0 14pt; }
  .diff { max-height: none; overflow: visible; border: none; }
  .figures > svg { break-inside: avoid; page-break-inside: avoid; }
  section.table { break-before: page; }
  tr { break-inside: avoid; }
}
)css";

std::string Cell(std::string_view text, std::string_view css_class = "") {
  if (css_class.empty()) return fmt::format("<td>{}</td>", XmlEscape(text));
  return fmt::format("<td class=\"{}\">{}</td>", css_class, XmlEscape(text));
}

std::string RegistrationSection(const ReportData& data) {
  std::string html =
      "<section id=\"registration\"><h2>Registration and versions</h2>\n<ul>";
  for (const std::string& r : data.registrations) {
    html += fmt::format("<li>{}</li>", XmlEscape(r));
  }
  html +=
      "</ul>\n<table><thead><tr><th>table</th><th>label</th><th>version</th>"
      "<th>shared with</th><th>same bytes as</th><th>compared with</th>"
      "</tr></thead><tbody>\n";
  for (const ReportTableRow& t : data.tables) {
    html += "<tr>" + Cell(t.table) + Cell(t.label) + Cell(t.version) +
            Cell(t.shared_with) + Cell(t.same_bytes_as) +
            Cell(t.compared_with) + "</tr>\n";
  }
  return html + "</tbody></table></section>\n";
}

std::string FindingsSection(const ReportData& data) {
  std::string html =
      "<section id=\"findings\"><h2>Findings of validation</h2>\n";
  if (data.findings.empty()) {
    return html + "<p class=\"ok\">No findings: every table validates clean."
                  "</p></section>\n";
  }
  html += fmt::format(
      "<p class=\"bad\">{} finding(s).</p>\n<table><thead><tr><th>table</th>"
      "<th>source</th><th>finding</th></tr></thead><tbody>\n",
      data.findings.size());
  for (const ReportFinding& f : data.findings) {
    const Diagnostic& d = f.diagnostic;
    const std::string place =
        d.line > 0 ? fmt::format("{}:{}: ", d.line, d.column) : "";
    const std::string text = DiagnosticText(
        {.path = d.path, .message = d.message, .severity = Severity::kError});
    html += "<tr>" + Cell(f.table) + Cell(d.file) +
            Cell(place + text, "value") + "</tr>\n";
  }
  return html + "</tbody></table></section>\n";
}

std::string DiffTable(const ReportSection& s) {
  if (s.differences.empty()) {
    return "<p class=\"ok\">No field differs.</p>\n";
  }
  std::string html = fmt::format(
      "<p>{} field(s) differ.</p>\n<div class=\"diff\"><table><thead><tr>"
      "<th>field</th><th>before</th><th>after</th></tr></thead><tbody>\n",
      s.differences.size());
  for (std::size_t i = 0;
       i < s.differences.size() && i < kReportDiffLimit; ++i) {
    const Difference& d = s.differences[i];
    html += "<tr>" + Cell(d.path, "path") + Cell(d.old_value, "value old") +
            Cell(d.new_value, "value new") + "</tr>\n";
  }
  html += "</tbody></table></div>\n";
  if (s.differences.size() > kReportDiffLimit) {
    html += fmt::format(
        "<p class=\"note\">{} more not listed; `q3a-tuning diff` lists them "
        "all.</p>\n",
        s.differences.size() - kReportDiffLimit);
  }
  return html;
}

std::string TableSection(const ReportSection& s) {
  std::string html = fmt::format(
      "<section class=\"table\" id=\"table-{}\"><h2>{}</h2>\n",
      XmlEscape(s.id), XmlEscape(s.heading));
  if (s.compared) {
    html += fmt::format(
        "<div id=\"diff-{}\"><p class=\"note\">{}</p>\n{}</div>\n",
        XmlEscape(s.id), XmlEscape(s.compared_note), DiffTable(s));
  }
  html += "<div class=\"figures\">\n";
  for (const std::string& svg : s.figures) html += svg;
  return html + "</div></section>\n";
}

}  // namespace

std::string RenderHtmlReport(const ReportData& data) {
  const std::string title = "AWB tuning report: container " + data.key;
  std::string html = fmt::format(
      "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, "
      "initial-scale=1\">\n<title>{0}</title>\n<style>{1}</style></head>\n"
      "<body><header><h1>{0}</h1><p>Written by q3a-tuning report. Tables "
      "compared with files show the file as \"after\" and the container's "
      "table as \"before\".</p></header>\n<nav><a href=\"#registration\">"
      "Registration</a><a href=\"#findings\">Findings</a>",
      XmlEscape(title), kStyle);
  for (const ReportSection& s : data.sections) {
    html += fmt::format("<a href=\"#table-{0}\">{0}</a>", XmlEscape(s.id));
  }
  html += "</nav>\n<main>\n";
  html += RegistrationSection(data);
  html += FindingsSection(data);
  for (const ReportSection& s : data.sections) html += TableSection(s);
  return html + "</main></body></html>\n";
}

}  // namespace q3a_tool
