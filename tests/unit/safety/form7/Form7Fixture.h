// A station with a lock on disk, and its operator at the keypad.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "safety/form7/Form7.h"
#include "unit/safety/Bloqueos.h"
#include "unit/safety/Diarios.h"

namespace vintoral::test {

class Form7Test : public testing::Test {
 protected:
  /// A start with this lock on disk.
  void Start(const std::string& password = "", const std::string& functions = std::string(18, '0')) {
    station_.Disk.Put(kExt, ExtWith(password, functions));
    station_.StartConnected();
  }
  /// A start with that function locked, which the password then opens for this run.
  void StartOpened(std::size_t position) {
    Start("12345", Locking(position));
    station_.Answers = {Answer::kOk};
    Open({[&] {
      station_.Type("12345");
      Confirm();
    }});
    station_.Boxes.clear();
  }
  /// F9, and the steps in the dialog; the last one has to close it.
  void Open(std::deque<std::function<void()>> steps) {
    station_.InDialog = std::move(steps);
    station_.Hands.Key(keys::kF9, 0);
    EXPECT_THAT(station_.InDialog, testing::IsEmpty());
  }
  Form7& Dialog() { return *form_.Form7; }
  void Key(int code) { station_.Hands.Key(code, 0); }
  void Confirm() { station_.Hands.Click(Dialog().ImgBoton[Form7::kConfirmar]); }
  void Tick(std::size_t row) {
    ASSERT_TRUE(station_.Hands.Select(Dialog().LstBloqueo, static_cast<int>(row)));
  }
  bool Locked() const { return form_.ImgIndicador[indicador::kBloqueo].Visible; }
  std::string Stored() const { return station_.Disk.Get(kExt).substr(kLockAt); }
  std::vector<String> Titles() const {
    std::vector<String> titles;
    for (const Box& box : station_.Boxes)
      titles.push_back(box.title);
    return titles;
  }
  std::vector<bool> Marks() {
    std::vector<bool> shown;
    for (const Label& mark : Dialog().LblSeleccion)
      shown.push_back(mark.Visible);
    return shown;
  }
  std::vector<std::size_t> Ticked() {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < Dialog().LstBloqueo.Checked.size(); ++row) {
      if (Dialog().LstBloqueo.Checked[row]) rows.push_back(row);
    }
    return rows;
  }
  std::int64_t LastEvent() const { return EntryOf(station_.Disk.Get(kFdr), 2).CodigoFuncion.Units(); }
  bool DigitsOn() {
    int on = 0;
    for (std::size_t digit = 0; digit < 10; ++digit)
      on += Dialog().ImgBoton[digit].Enabled ? 1 : 0;
    EXPECT_TRUE(on == 0 || on == 10);
    return on == 10;
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

}  // namespace vintoral::test
