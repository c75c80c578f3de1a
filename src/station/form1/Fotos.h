// The photos of fichas and users: where they lie, the still in the place of the live picture, the user's
// card.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "common/Moment.h"
#include "common/String.h"
#include "platform/Disk.h"
#include "platform/Picture.h"
#include "records/RegistroFicha.h"

namespace vintoral {

class Form1;

/// The folders of photos in a data folder, by whose they are.
namespace carpeta_fotos {
inline constexpr std::string_view kAdentro = "Im\xE1genes ACT";
inline constexpr std::string_view kHistorial = "Im\xE1genes HST";
inline constexpr std::string_view kUsuarios = "Im\xE1genes USR";
inline constexpr std::string_view kPrimeras = "Im\xE1genes INI";
inline constexpr std::string_view kDetalles = "Im\xE1genes DTL";
}  // namespace carpeta_fotos

/// Where the photo of a ficha of the view lies: another folder once it has left.
String RutaFoto(const Form1& form, const RegistroFicha& ficha);
/// The same of the ficha that is inside under this number.
String RutaFotoAdentro(const Form1& form, std::int64_t numero);
/// The same in full, from the system's own folders on.
String RutaCompletaFotoAdentro(const Form1& form, std::int64_t numero);
/// Where the photo of a user lies: the latest one, and that of the first visit.
String RutaFotoUsuario(const Form1& form, std::int64_t usuario);
String RutaFotoPrimera(const Form1& form, std::int64_t usuario);
/// Where the photo of a ficha goes besides, which is that of user `usuario` too; nowhere for nobody.
std::vector<String> RutasFotosUsuario(const Form1& form, std::int32_t usuario, bool primera);
/// No ficha has more additional photos: their number is kept in 16 bits.
inline constexpr std::int16_t kMaxFotos = 32000;
/// The folder of the additional photos of the ficha that is inside with this plate and number, below the
/// folder `base` or below the data folder's. What no file system takes in a name, and what would lead out of
/// that folder, is an underscore.
String CarpetaDetalleEn(const String& base, std::string_view placa, std::int64_t numero);
String CarpetaDetalle(const Form1& form, std::string_view placa, std::int64_t numero);
/// What that folder is called once the ficha has left.
String CarpetaDetalleFinal(const Form1& form, std::string_view placa, Moment momento);
/// A photo in such a folder: 0 a copy of the main picture, from 1 the additional ones.
String RutaDetalle(const String& carpeta, std::int64_t numero, std::int64_t foto);
/// The photos of `fichas`, one for each; nothing for one that is missing or, as far as this face knows by
/// now, can't be shown. A damaged one is deleted.
std::vector<Picture> FotosDe(Form1& form, std::span<const RegistroFicha> fichas);
/// The photos of the grid's page as they are now; the page itself stays as it was drawn.
void DibujarFotos(Form1& form);
/// Deletes a photo that was read whole and is no picture; not when the file has changed since it was read,
/// nor while somebody writes it.
void BorrarFotoDanada(Form1& form, const String& foto, const FileMark& mark);

/// Deletes a file though it is read-only; of a link the link alone. False when it is still there.
bool QuitarArchivo(Disk& disk, const String& ruta);
/// Is there an additional photo of that number? Looked for as the station writes the names: to look whatever
/// their case would read a folder that has an entry for each ficha of years.
bool HayFotoDetalle(const Form1& form, std::string_view placa, std::int64_t numero, std::int64_t foto);

/// Puts the photo of user `numero` (0 for nobody) on his card; gives its station path, or an empty text, with
/// the card left as it is, when there is none.
String MostrarFotoUsuario(Form1& form, std::int32_t numero);
/// Photo and points of a user go from his card.
void QuitarUsuario(Form1& form);
/// The still takes the place of the live picture; it may hold nothing.
void MostrarFija(Form1& form, const Picture& foto);
/// The photo of the ficha that is looked at; without one the live picture, and the operator is told so.
void MostrarFotoFicha(Form1& form, const String& foto);
/// Tells the operator, as long as the still holds nothing, that there is no photo.
void AvisarSinImagen(Form1& form);

}  // namespace vintoral
