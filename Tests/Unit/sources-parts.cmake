set(SORVIK_PART_TESTS
  CreateParts.cpp
  CreatePartsCustom.cpp
  CreatePartsStub.cpp
  Registry.cpp
  RegistryApp.cpp
  RegistryValues.cpp)
