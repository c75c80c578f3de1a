// The operator's hands on a station in memory.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

#include "support/MemoryStation.h"

namespace vintoral::test {

class InputTest : public testing::Test {
 protected:
  InputTest() { station_.StartConnected(); }

  /// The text that keys leave in a free text field.
  String Typed(std::initializer_list<std::pair<int, int>> keys) {
    TextBox& field = form_.TxtCampo[2];
    field.SetText({});
    form_.SetFocus(&field);
    for (const auto& [code, mask] : keys)
      hands_.Key(code, mask);
    return field.Text();
  }
  void Select(TextBox& box, std::size_t start, std::size_t length) {
    form_.SetFocus(&box);
    box.SelStart = start;
    box.SelLength = length;
  }
  void ExpectSelection(const TextBox& box, std::size_t start, std::size_t length) {
    EXPECT_EQ(box.SelStart, start);
    EXPECT_EQ(box.SelLength, length);
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
  Input& hands_ = station_.Hands;
  TextBox& number_ = form_.TxtCampo[0];
  TextBox& name_ = form_.TxtCampo[2];
};

}  // namespace vintoral::test
