set(SORVIK_PART_TESTS
  CreateParts.cpp
  CreatePartsCustom.cpp
  Registry.cpp)
