// The still photo in the place of the live picture, and the photo on the user's card.
#pragma once

#include <cstdint>

#include "common/String.h"

namespace vintoral {

class Form1;

/// Puts the photo of user `numero` on his card; gives its station path, or an empty text, with the card left
/// as it is, when there is none.
String MostrarFotoUsuario(Form1& form, std::int32_t numero);
/// The still takes the place of the live picture; it may hold nothing.
void MostrarFija(Form1& form, const String& foto);
/// Tells the operator, as long as the still holds nothing, that there is no photo.
void AvisarSinImagen(Form1& form);

}  // namespace vintoral
