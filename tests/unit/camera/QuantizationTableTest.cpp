#include "camera/cJpeg/QuantizationTable.h"

#include <gtest/gtest.h>

TEST(QuantizationTable, Placeholder) {
  EXPECT_EQ(vintoral::kZigZag[1], 1);
}
