// CMake compiles headers in advance only for something that has a source file.
