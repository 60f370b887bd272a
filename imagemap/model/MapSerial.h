#pragma once

/**
 * Tells apart the maps that were in the editor one after the other. Undoing and doing again goes from one to
 * the other.
 */
class MapSerial
{
public:
    /** Of the map that is there now. */
    [[nodiscard]] int Number() const { return number_; }

    /** From now on this is another map, whatever has stayed of the one before. */
    void Begin() { number_ = ++last_; }

    /** The map of `number` is there again. */
    void ReturnTo(int number) { number_ = number; }

private:
    int number_ = 0;
    int last_ = 0;
};
