#include "foundation/Application.h"

Application::Application(const String& newName, unsigned int major, unsigned int minor)
    : name(newName), majorVersion(major), minorVersion(minor)
{}
