// Writes the sample profiles of examples/ into a folder: make_examples FOLDER
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <system_error>

#include "tools/example_files.h"

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: make_examples FOLDER\n";
    return 2;
  }
  for (const auto& [name, contents] : koprax::examples::ExampleFiles()) {
    const std::string path = std::string(arguments[1]) + "/" + name;
    std::error_code failure;  // told by the file
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), failure);
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
