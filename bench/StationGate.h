// A gate whose commands are measured: the driver's platform on a real disk, every box answered at once.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "Slots.h"
#include "common/Numbers.h"
#include "platform/headless/HeadlessPlatform.h"
#include "platform/pictures/PictureDecoder.h"
#include "records/Register.h"
#include "records/RegistroUsuario.h"
#include "station/form1/Form1.h"
#include "station/forms/Input.h"

namespace vintoral::bench {

inline constexpr int kInside = 300;  ///< of them taken in the morning
inline constexpr int kUsers = 100;   ///< registered; the day's vehicles are strangers

/// The slot of the day's vehicle `i`: each time another one that is free in the morning.
inline int SlotOf(int i) {
  return kInside + 1 + i * 37 % (kSlots - kInside - 1);
}

/// A folder on the disk that the build lies on; memory would sync for nothing.
class WorkFolder {
 public:
  WorkFolder() : path_(std::filesystem::current_path() / "bench-station") {
    std::filesystem::remove_all(path_);
    for (const char* name : {"Vintoral/Multimedia/Vintoral.USR", "Vintoral/Multimedia/Vintoral.CFR",
                             "Vintoral/Sonidos/Vintoral-4.wav", "Vintoral/Sonidos/Vintoral-10.wav"}) {
      std::filesystem::create_directories((path_ / name).parent_path());
      std::ofstream(path_ / name).flush();
    }
  }
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;
  ~WorkFolder() { std::filesystem::remove_all(path_); }
  std::string Path(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

/// Whether the gate asks for them: who has a plate is registered.
enum class Plates { kNone, kAll };

class Gate {
 public:
  explicit Gate(const std::string& folder, Plates plates = Plates::kAll,
                PosixDisk::Work behind = PosixDisk::Work::kAtOnce)
      : plates_(plates),
        platform_(folder, pictures_, behind),
        form_(platform_.Devices()),
        input_(form_.OpenForms) {
    platform_.Screen.OnWait = [this] {
      if (!platform_.Screen.Answer(Answer::kYes)) platform_.Screen.Answer(Answer::kOk);
    };
    platform_.Clock.Set(*Moment::From({.year = 2026, .month = 11, .day = 20, .hour = 14}));
    form_.Form_Load();
    Register<RegistroUsuario> users(platform_.Devices().disk, form_.RutaCompartida("Vintoral.USR"),
                                    OpenMode::kReadWrite);
    for (int number = 1; number <= kUsers; ++number) {
      RegistroUsuario user;
      user.Placa = "XYZ"_w + Digits(number, 4);
      users.Write(number, user, false).PassOver();
    }
    AdvanceTime(platform_.Clock, form_.OpenForms, 4000);
    for (int slot = 1; slot <= kInside; ++slot) {
      BeforeSave(slot);
      Save();
    }
  }

  /// The operator types the number and the plate, or calls the ficha up and reads what is to be paid.
  void BeforeSave(int slot) {
    Type(slot);
    if (plates_ == Plates::kAll) form_.TxtCampo[1].SetText("ABC"_w + Digits(slot, 4));
  }
  void BeforeRetire(int slot) { Type(slot); }
  /// The command, its box answered at once. No time passes, so no tick weighs in.
  void Save() { form_.PctBoton_Click(5); }
  void Retire() { form_.PctBoton_Click(6); }
  Form1& Form() { return form_; }
  HeadlessPlatform& Devices() { return platform_; }
  /// Rows in the history, which begins with one of its own.
  std::int64_t Retired() { return Records<RegistroFicha>("Vintoral.HST"); }
  /// Records in a register of the data folder.
  template <class R>
  std::int64_t Records(std::string_view file) {
    const Register<R> records(platform_.Devices().disk, form_.RutaCompartida(file), OpenMode::kRead);
    return records.Count().PassOver().value_or(0);
  }

 private:
  void Type(int number) {
    for (const char character : std::to_string(number))
      input_.Character(character);
    input_.Character('\r');
  }

  Plates plates_;
  PictureDecoder pictures_;
  HeadlessPlatform platform_;
  Form1 form_;
  Input input_;
};

}  // namespace vintoral::bench
