#include <zrBase/utilities/qtParents.h>

#include <gtest/gtest.h>

TEST(PrintQtParents, TellsOfANullPointer) {
  testing::internal::CaptureStderr();
  zrStrUtils::printQtParents(nullptr);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "printQtParents null\n");
}
