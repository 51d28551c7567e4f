// The part of the API library that is linked into every module. The module exports it under this name so that the host
// can ask for the API release.
extern "C" int acrxGetApiVersion() {
    return 24;
}
