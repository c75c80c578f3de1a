// How every slip begins and ends.
#pragma once

#include "platform/PrintDocument.h"

namespace vintoral {

/// A document in the text's type, for the printer of that name. `tamano` is the size of a format.
PrintDocument EmpezarTira(const String& impresora, float tamano);
/// The closing rule, the foot, and the paper that must pass the tear bar of a receipt printer.
void TerminarTira(PrintDocument& tira, const String& direccion, std::string_view pie);
/// Blanks up to column `columnas` behind `ocupadas` ones; none where the room is too narrow.
String Blancos(std::size_t columnas, std::size_t ocupadas);
/// `text` in bold.
void ImprimirNegrita(PrintDocument& tira, const String& text);

}  // namespace vintoral
