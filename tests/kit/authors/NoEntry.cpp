// A valid shared library that is not a plug-in: it has no registration entry point.
extern "C" int NotThePluginEntryPoint() {
    return 42;
}
