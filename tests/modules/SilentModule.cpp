// A file that can be loaded but is no module.
extern "C" int silentModuleNumber()
{
    return 1;
}
