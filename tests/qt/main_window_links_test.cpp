#include <QTest>

#include "desktop_window_fixture.h"

namespace wavforge::qt {
namespace {

// A click on a link label or the icon opens the address the language file gives.
TEST_F(DesktopWindowTest, LinksOpenTheirAddresses) {
  WriteSettings("English");
  Open();
  const std::tuple<const char*, int, const char*> cases[] = {
      {"lblHomePage", -1, "https://wavforge.example.org/"},
      {"imgIcon", 0, "https://wavforge.example.org/"},
      {"lblMailTo", -1, "mailto:wavforge@example.org"},
  };
  for (const auto& [name, index, address] : cases) {
    processes.shell.clear();
    QTest::mouseClick(Widget(name, index), Qt::LeftButton);
    ASSERT_FALSE(processes.shell.empty()) << name;
    for (const auto& opened : processes.shell) EXPECT_EQ(opened.file, address) << name;
  }
}

}  // namespace
}  // namespace wavforge::qt
