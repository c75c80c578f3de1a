// A gate in barcode mode with one ticket inside.
#pragma once

#include "unit/entry/CodigosFixture.h"

namespace vintoral::test {

/// Number 7 is inside with kCodigo.
class LecturaTest : public CodigosTest {
 protected:
  LecturaTest() {
    PutInside(7);
    PutCode(7, kCodigo, "0007");
    form_.RefrescarVista();
    station_.Events.Take();
  }
  bool Found() const { return form_.FichaEnPantalla() && form_.TxtCampo[0].Text() == "0007"_w; }
  void Enter() { station_.Hands.Key(keys::kEnter, 0); }
};

}  // namespace vintoral::test
