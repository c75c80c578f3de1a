// The registers of a new station, made in its own Multimedia whether it is the main gate or a connected one.
#include <cerrno>
#include <memory>
#include <string_view>
#include <tuple>

#include "records/ArchivosNuevos.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

/// A link to a mount that is not there: the house is somewhere else, and the link watch waits for it.
bool DatosFuera(const Disk& disk) {
  return disk.IsLink("Multimedia"_w) && !disk.FolderExists("Multimedia"_w);
}

/// Never in the place of a register that is there and can't be looked at for the moment.
Outcome MakeNew(Disk& disk, const String& path, std::string_view content) {
  Outcome made = disk.CreateNew(path, content);
  if (!made) return made.Error() == EEXIST && !disk.FolderExists(path) ? Outcome::Done() : made;
  Result<std::unique_ptr<DiskFile>> file = disk.Open(path, OpenMode::kReadWrite);
  return file ? file.Take()->Sync() : file.Why();
}

/// Does nothing when the register is there, or away with all the others; false when it can't be made.
bool Make(Disk& disk, const String& name, String (*content)()) {
  const String path = "Multimedia\\"_w + name;
  if (DatosFuera(disk) || disk.Exists(path)) return true;
  const Outcome made = MakeNew(disk, path, content());
  made.PassOver();
  return made || DatosFuera(disk);  // the mount may have gone meanwhile
}

/// The same; a failure is told and ends the program.
bool MakeOrStop(Form1& form, const String& name, String (*content)()) {
  Disk& disk = form.Devices().disk;
  if (Make(disk, name, content)) return true;
  form.Detener("No se puede crear el archivo \""_w + name + "\". La carpeta '"_w + disk.CurrentFolder() +
               "\\Multimedia' está protegida contra escritura."_w);
  return false;
}

}  // namespace

bool Form1::CrearArchivoACT() {
  return MakeOrStop(*this, "Vintoral.ACT"_w, ActNuevo);
}

bool Form1::CrearArchivoHST() {
  return MakeOrStop(*this, "Vintoral.HST"_w, HstNuevo);
}

void Form1::CrearArchivoNSR() {
  std::ignore = Make(platform_.disk, "Vintoral.NSR"_w, NsrNuevo);
}

void Form1::CrearArchivoCDB() {
  std::ignore = Make(platform_.disk, "Vintoral.CDB"_w, CdbNuevo);
}

void Form1::CrearArchivoCRD() {
  std::ignore = Make(platform_.disk, "Vintoral.CRD"_w, [] { return String(); });
}

}  // namespace vintoral
