// The least that a program with a window does: open one of the same size and kind, paint it once, wait for its end.

#include <SDL.h>

namespace {

constexpr int Width = 320;
constexpr int Height = 480;

} // namespace

int main(int /*count*/, char** /*arguments*/) {
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    if (SDL_Init(SDL_INIT_VIDEO) != 0)
        return 2;
    SDL_Window* window = SDL_CreateWindow("Bare", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, Width, Height,
        SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI);
    SDL_Surface* surface = window ? SDL_GetWindowSurface(window) : nullptr;
    if (!surface)
        return 2;
    SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, 255, 255, 255));
    SDL_UpdateWindowSurface(window);
    SDL_Event event;
    while (SDL_WaitEvent(&event) != 0 && event.type != SDL_QUIT) { }
    SDL_Quit();
    return 0;
}
