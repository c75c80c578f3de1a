// A station that sells, and its operator in the dialog of the articles.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "records/RegistroExtra.h"
#include "sales/form4/Form4.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"

namespace vintoral::test {

class ExtrasTest : public testing::Test {
 protected:
  static constexpr const char* kExt = "Recursos\\Vintoral.EXT";
  static constexpr const char* kXtr = "Recursos\\Vintoral.XTR";

  /// `lineas`: the table of extras.
  explicit ExtrasTest(const std::vector<std::string>& lineas = {"MINUTO = 200", "CAFE = 5000",
                                                                "CASCO MOTO = 120000", "GOMA = 0,5"}) {
    station_.Disk.Put(kXtr, TariffFile(lineas));
    station_.StartConnected();
    // The start has laid the list out for the lock; here a sale has to.
    station_.Disk.Remove(kExt).PassOver();
    station_.Clock.Set(At(14, 5));
  }
  /// Opens the dialog by its key, does `steps`, and leaves it by Esc where they have not left it already.
  void Dialog(const std::function<void()>& steps) {
    station_.InDialog = {steps, [this] { Key(keys::kEscape); }};
    Key(keys::kF7);
    station_.InDialog.clear();
    EXPECT_EQ(form_.Form4, nullptr);
  }
  Form4& Extras() { return *form_.Form4; }
  void Key(int code) { hands_.Key(code, 0); }
  void Tick(int row, int value = 1) { EXPECT_TRUE(hands_.Tick(Extras().LstArticulo, row, value)); }
  void Register() { hands_.Click(Extras().CmdRegistrar); }
  String Quantity(std::size_t row) { return Extras().CboCantidad[row].Text(); }
  String Value(std::size_t row) { return Extras().TxtTotal[row].Text(); }
  String Total() { return Value(Form4::kTotal); }
  bool HasQuantity(std::size_t row) { return Extras().CboCantidad[row].Visible; }
  /// The whole way of a sale of one article.
  void Sell(int row, std::string_view quantity = "1") {
    Dialog([this, row, quantity] {
      Tick(row);
      station_.Type(quantity);
      Register();
    });
  }

  std::string List() const { return station_.Disk.Get(kExt); }
  RegistroExtra Line(std::size_t number) const {
    return Decoded<RegistroExtra>(List().substr((number - 1) * RegistroExtra::kSize, RegistroExtra::kSize));
  }
  static RegistroExtra Sold(std::string_view article, std::int16_t quantity, Money price,
                            std::int16_t time = 1405) {
    return {"20/11/26"_w, Left(String(article) + String(15, ' '), 15), false, price, time, quantity};
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
  Input& hands_ = station_.Hands;
};

}  // namespace vintoral::test
