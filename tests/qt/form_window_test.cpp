#include "qt/form_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include "qt/qt_user_interface.h"

namespace wavforge::qt {
namespace {

// A window with key preview that only notes the keys it sees.
class KeyNotingForm final : public Form {
 public:
  KeyNotingForm() : Form("frmKeys") {
    KeyPreview = true;
    Visible = true;
    ScaleWidth = ScaleHeight = 2400;
    Add("cmdOk", ControlKind::kCommandButton).Move(0, 0, 1200, 360);
  }
  void KeyDown(int& key, int /*shift*/) override { keys.push_back(key); }
  std::vector<int> keys;
};

TEST(FormWindowTest, EachKeyIsPreviewedOnceWhicheverDescendantHasTheFocus) {
  KeyNotingForm form;
  QtUserInterface ui;
  FormWindow window(form, ui);
  window.LoadForm();
  QApplication::processEvents();
  QWidget* button = window.WidgetOf("cmdOk");
  // A widget inside a control, as a web view keeps its focused widget.
  auto* inner = new QLineEdit(button);
  inner->show();
  window.activateWindow();
  for (QWidget* focused : {button, static_cast<QWidget*>(inner)}) {
    focused->setFocus();
    ASSERT_EQ(QApplication::focusWidget(), focused);
    form.keys.clear();
    QTest::keyClick(focused, Qt::Key_A);
    EXPECT_EQ(form.keys, std::vector<int>{Qt::Key_A}) << focused->metaObject()->className();
  }
}

}  // namespace
}  // namespace wavforge::qt
