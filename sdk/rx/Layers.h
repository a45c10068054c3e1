// How the layers of the SDK take part in its start and end: each says what it does, and lower ones come first.
#pragma once

#include <vector>

namespace odlayers
{
/// The place of a layer in the order of starting.
enum Order
{
    kGeometry = 10,
    kDrawing = 20, ///< database objects derive from what can be drawn
    kDatabase = 30,
    kUnits = 35,
    kEntities = 40,
    kFiles = 50,
    kCommands = 60
};

struct Layer
{
    Order order;
    void (*start)(); ///< registers the classes of the layer
    void (*end)();   ///< withdraws them
};

/// A variable of this type at namespace scope makes a layer known.
class Registration
{
public:
    Registration(Order order, void (*start)(), void (*end)());
};

/// All layers, lower ones first.
std::vector<Layer> sorted();
} // namespace odlayers
