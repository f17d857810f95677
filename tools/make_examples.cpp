// Writes the sample profiles of examples/ into a folder: make_examples FOLDER
#include <fstream>
#include <iostream>
#include <string>

#include "tools/example_files.h"

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: make_examples FOLDER\n";
    return 2;
  }
  for (const auto& [name, contents] : koprax::examples::ExampleFiles()) {
    const std::string path = std::string(arguments[1]) + "/" + name;
    std::ofstream file(path, std::ios::binary);
    file << contents;
    file.close();
    if (!file) {
      std::cerr << "make_examples: " << path << " cannot be written\n";
      return 1;
    }
    std::cout << path << "\n";
  }
  return 0;
}
