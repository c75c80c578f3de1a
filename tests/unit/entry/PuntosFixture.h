// A user whose ficha is on display behind a stay, and the three registers that hear of his points.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/MemoryStation.h"
#include "support/Registers.h"

namespace vintoral::test {

/// User 2 of three comes in at 14:00 on the 20th; 1 day, 2 hours and 47 minutes are 96 + 8 + 3 = 107 points.
class PuntosTest : public testing::Test {
 protected:
  PuntosTest() { station_.StartConnected(); }
  void PutUsers(std::int32_t points) {
    RegistroUsuario one, two, three;
    one.Placa = "AAA";
    one.Puntos = 11;
    two.Placa = "BBB";
    two.Nombre = "BRUNO";
    two.Puntos = points;
    three.Placa = "CCC";
    three.Puntos = 33;
    station_.Disk.Put(kUsr, Encoded(one) + Encoded(two) + Encoded(three));
  }
  void SetPoints(std::int32_t points) {
    RegistroUsuario user = UserAt(2);
    user.Puntos = points;
    PutRecord(station_.Disk, kUsr, 2, user);
  }
  /// On display at 16:47 of the next day.
  void Stay(std::int32_t points) {
    PutUsers(points);
    station_.Enter("7", "bbb");
    station_.Clock.Set(At(16, 47, 0, 21));
    station_.TypeAndEnter("7");
    station_.Boxes.clear();
    station_.Events.Take();
  }
  void Retire() {
    station_.Answers = {Answer::kYes};
    station_.Hands.Key(keys::kDelete, 0);
  }
  void Clear(Answer answer = Answer::kYes) {
    station_.Answers = {answer};
    station_.Hands.Click(form_.ImgPuntos);
  }
  RegistroUsuario UserAt(std::size_t number) const {
    return RecordOf<RegistroUsuario>(station_.Disk, kUsr, number);
  }
  std::size_t Movements() const { return CountOf<RegistroFicha>(station_.Disk, kCrd); }
  RegistroFicha MovementAt(std::size_t row) const {
    return RecordOf<RegistroFicha>(station_.Disk, kCrd, row);
  }
  /// All three registers tell the same.
  void ExpectStored(std::int32_t points) {
    EXPECT_EQ(UserAt(2).Puntos, points);
    ASSERT_EQ(Movements(), 1u);
    EXPECT_EQ(MovementAt(1).UsuarioPuntos, points);
    ASSERT_EQ(station_.HistoryRows(), 2u);
    EXPECT_EQ(station_.History(2).UsuarioPuntos, points);
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

}  // namespace vintoral::test
