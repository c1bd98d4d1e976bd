#include <zrBase/utilities/qtParents.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QByteArray>
#include <QDialog>
#include <QObject>
#include <QPushButton>
#include <QString>
#include <QWidget>

#include <string>

namespace {

/// Widgets without a screen.
class PrintQtParentsOfWidgets : public testing::Test {
 protected:
  static std::string printed(QWidget* widget) {
    testing::internal::CaptureStderr();
    zrStrUtils::printQtParents(widget);
    return testing::internal::GetCapturedStderr();
  }

 private:
  /// Before the application, which asks for it.
  const bool isOffscreen_ = qputenv("QT_QPA_PLATFORM", "offscreen");
  int argumentCount_ = 1;
  char name_[8] = "widgets";
  char* arguments_[2] = {name_, nullptr};
  QApplication application_{argumentCount_, arguments_};
};

TEST_F(PrintQtParentsOfWidgets, WritesTheChainOfNames) {
  QDialog dialog;
  dialog.setObjectName("wellDialog");
  QWidget* const frame = new QWidget(&dialog);
  frame->setObjectName("frame");
  QPushButton* const button = new QPushButton(frame);
  button->setObjectName("okButton");
  EXPECT_EQ(printed(button), "\nokButton\n    frame\n    wellDialog\n");
  EXPECT_EQ(printed(frame), "\nframe\n    wellDialog\n");
  EXPECT_EQ(printed(&dialog), "\nwellDialog\n");
}

TEST_F(PrintQtParentsOfWidgets, WritesNoNameForAnEmptyOne) {
  QDialog dialog;
  QWidget* const frame = new QWidget(&dialog);
  QPushButton* const button = new QPushButton(frame);
  EXPECT_EQ(printed(button), "\nno name\n    no name\n    no name\n");
  frame->setObjectName("frame");
  EXPECT_EQ(printed(button), "\nno name\n    frame\n    no name\n");
}

TEST_F(PrintQtParentsOfWidgets, WritesUtf8) {
  QWidget widget;
  widget.setObjectName(QString::fromUtf8("\xC3\x96lfeld"));
  EXPECT_EQ(printed(&widget), "\n\xC3\x96lfeld\n");
}

TEST_F(PrintQtParentsOfWidgets, DoesNotTouchTheWidgets) {
  QDialog dialog;
  QWidget* const frame = new QWidget(&dialog);
  printed(frame);
  EXPECT_EQ(frame->parentWidget(), &dialog);
  EXPECT_TRUE(frame->objectName().isEmpty());
}

TEST_F(PrintQtParentsOfWidgets, TellsOfANullPointer) {
  EXPECT_EQ(printed(nullptr), "printQtParents null\n");
}

TEST_F(PrintQtParentsOfWidgets, RestsOnAWidgetThatStartsWithItsObject) {
  QPushButton button;
  QWidget* const widget = &button;
  EXPECT_EQ(static_cast<const void*>(widget),
            static_cast<const void*>(static_cast<QObject*>(widget)));
}

}  // namespace
