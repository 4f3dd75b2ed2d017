// A valid shared object that exports no registration entry point.
extern "C" int TindraTest_SomethingElse() {
    return 7;
}
