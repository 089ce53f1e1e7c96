// Stands in for the host connector module, so that a test can load it by file.
extern "C" __attribute__((visibility("default"))) int fakeConnectorVersion()
{
    return 1;
}
