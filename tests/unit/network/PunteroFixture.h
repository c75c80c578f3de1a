// The grid with a pointer over it, and which face the screen shows.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "unit/network/RejillaFixture.h"

namespace vintoral::test {

class PunteroTest : public RejillaTest {
 protected:
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (const Label& row : Form.LblCampo)
      rows.push_back(row.Caption.Bytes());
    return rows;
  }
  bool EntryFace() const {
    return std::all_of(Form.TxtCampo.begin(), Form.TxtCampo.end(),
                       [](const TextBox& field) { return field.Visible; }) &&
           Form.CboTarifa[1].Visible && !Form.CboTarifa[0].Visible && Form.TmrHoraFecha.Enabled;
  }
  bool RecordFace() const {
    return std::none_of(Form.TxtCampo.begin(), Form.TxtCampo.end(),
                        [](const TextBox& field) { return field.Visible; }) &&
           !Form.CboTarifa[1].Visible && Form.CboTarifa[0].Visible && !Form.TmrHoraFecha.Enabled;
  }
  void Present() { ASSERT_TRUE(EntryFace()); }
};

}  // namespace vintoral::test
