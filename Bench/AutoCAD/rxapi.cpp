// The part of the API library that is linked into every module: the answer to the host's question for the API release.
// The module exports it under this name.
extern "C" int acrxGetApiVersion() {
    return 24;
}
