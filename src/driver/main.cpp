// vintoral-driver: reads standard input to its end and takes no arguments.
#include <iostream>
#include <string>

#include "driver/Driver.h"

int main() {
  std::ios::sync_with_stdio(false);
  const auto read = []() -> std::optional<std::string> {
    std::string line;
    if (!std::getline(std::cin, line)) return std::nullopt;
    return line;
  };
  const auto write = [](const std::string& reply) { std::cout << reply << std::endl; };
  vintoral::Driver(read, write).Run();
  return 0;
}
