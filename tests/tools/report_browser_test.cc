// The report as a person sees it: the tool writes the page for a container
// with an edited feature table, then a headless Chromium loads it, dumps its
// DOM, takes a screenshot and prints it to PDF. Skipped when Chromium is not
// installed (scripts/install-deps installs it), except under CI (the
// environment variable CI set, as .ci/run does), where that is a failure.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>

#include "tests/tools/png_decode.h"
#include "tests/tools/tool_runner.h"

namespace q3a_test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr char kKey[] = "0,-1,1,0,-1";

bool HaveChromium() {
  return std::system("command -v chromium >/dev/null 2>&1") == 0;
}

// Runs headless Chromium on `page` with `flags`; returns its exit status and
// fills `out` and `log` (stderr, with console messages).
int RunChromium(const std::string& dir, const std::string& page,
                const std::string& flags, std::string& out, std::string& log) {
  const std::string command =
      "timeout 180 chromium --headless --no-sandbox --disable-gpu "
      "--hide-scrollbars --no-first-run --enable-logging=stderr --v=0 "
      "--user-data-dir='" + dir + "/profile' " + flags + " 'file://" + page +
      "' >'" + dir + "/chromium.out' 2>'" + dir + "/chromium.err'";
  const int status = std::system(command.c_str());
  out = ReadFile(dir + "/chromium.out");
  log = ReadFile(dir + "/chromium.err");
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class ReportInBrowser : public ToolTest {
 protected:
  void SetUp() override {
    if (!HaveChromium()) {
      const char* ci = std::getenv("CI");
      if (ci != nullptr && *ci != '\0') {
        FAIL() << "chromium is not installed, and CI must run the browser "
                  "tests; scripts/install-deps installs it";
      }
      GTEST_SKIP() << "chromium is not installed; scripts/install-deps "
                      "installs it";
    }
    ToolTest::SetUp();
    ASSERT_EQ(Run({"export", "--key", kKey, "-o", Path("tables")}).exit_code, 0);
    const std::string edited =
        WriteEdited("edited_feature.json", Path("tables/feature.json"),
                    {{"\"max_face_count\": 5", "\"max_face_count\": 6"}});
    report_ = Path("report.html");
    const ToolResult result =
        Run({"report", "--key", kKey, "--against", edited, "-o", report_});
    ASSERT_EQ(result.exit_code, 0) << result.err;
    ASSERT_EQ(result.out, report_ + "\n");
  }

  // Runs chromium over the report with `flags`, for the file it writes.
  void Chromium(const std::string& flags) {
    std::string out, log;
    EXPECT_EQ(RunChromium(dir_, report_, flags, out, log), 0) << log;
  }

  std::string report_;
};

TEST_F(ReportInBrowser, LoadsWithoutConsoleMessagesAndHasEverySection) {
  const std::string html = ReadFile(report_);
  // Self-contained: nothing to run, nothing to fetch.
  EXPECT_THAT(html, Not(HasSubstr("<script")));
  EXPECT_THAT(html, Not(HasSubstr("url(")));
  EXPECT_THAT(html, Not(HasSubstr("src=")));
  EXPECT_THAT(html, Not(HasSubstr("<link")));
  std::string dom, log;
  ASSERT_EQ(RunChromium(dir_, report_, "--dump-dom", dom, log), 0) << log;
  EXPECT_THAT(log, Not(HasSubstr(":CONSOLE"))) << log;
  for (const char* section :
       {"id=\"registration\"", "id=\"findings\"", "id=\"table-basic\"",
        "id=\"table-advance\"", "id=\"table-color\"", "id=\"table-feature\"",
        "id=\"diff-feature\""}) {
    EXPECT_THAT(dom, HasSubstr(section));
  }
  EXPECT_THAT(dom, HasSubstr("face_tuning_table.max_face_count"));
  std::size_t pictures = 0;
  for (std::size_t at = dom.find("<svg"); at != std::string::npos;
       at = dom.find("<svg", at + 1)) {
    ++pictures;
  }
  EXPECT_GE(pictures, 5u);
}

TEST_F(ReportInBrowser, ScreenshotIsAPictureNotABlankPage) {
  const std::string png = Path("report.png");
  Chromium("--screenshot='" + png + "' --window-size=1280,2000");
  const std::optional<Image> image = DecodePng(ReadFile(png));
  ASSERT_TRUE(image.has_value()) << "not a PNG of a known kind: " << png;
  EXPECT_EQ(image->width, 1280u);
  EXPECT_EQ(image->height, 2000u);
  std::set<std::uint32_t> colours;
  std::size_t non_white = 0;
  for (std::uint32_t pixel : image->rgb) {
    colours.insert(pixel);
    if (pixel != 0xFFFFFF) ++non_white;
  }
  EXPECT_GT(colours.size(), 50u);
  EXPECT_GT(non_white, image->rgb.size() / 4);
  // The header band at the top is the page's dark blue.
  EXPECT_EQ(image->rgb[10 * image->width + 10], 0x20304Au);
}

TEST_F(ReportInBrowser, PrintsToPdf) {
  const std::string pdf = Path("report.pdf");
  Chromium("--no-pdf-header-footer --print-to-pdf='" + pdf + "'");
  const std::string bytes = ReadFile(pdf);
  EXPECT_TRUE(bytes.starts_with("%PDF-")) << pdf;
  EXPECT_GT(bytes.size(), 20000u);
  // One page per table section at least.
  std::size_t pages = 0;
  for (std::size_t at = bytes.find("/Type /Page"); at != std::string::npos;
       at = bytes.find("/Type /Page", at + 1)) {
    if (bytes.compare(at, 12, "/Type /Pages") != 0) ++pages;
  }
  EXPECT_GE(pages, 4u);
}

}  // namespace
}  // namespace q3a_test
