#include "hosts/window/tone.h"

#include <SDL.h>
#include <algorithm>
#include <array>
#include <cmath>

namespace device {

namespace {

constexpr int SampleRate = 22050;
constexpr int Samples = SampleRate * 60 / 1000;
constexpr int FadeSamples = SampleRate * 5 / 1000;
constexpr float Loudness = 0.12F;
constexpr float Radians = 2.0F * 3.14159265F * 880.0F / SampleRate;
/// What a sound device may hold back behind the tone itself.
constexpr std::uint32_t MillisecondsOpen = 250;

std::array<float, Samples> MakeTone() {
    std::array<float, Samples> tone{};
    for (int i = 0; i < Samples; ++i) {
        // Without a fade at both ends it clicks.
        const auto fade = static_cast<float>(std::min({i, Samples - i, FadeSamples})) / FadeSamples;
        tone[static_cast<std::size_t>(i)] = Loudness * fade * std::sin(Radians * static_cast<float>(i));
    }
    return tone;
}

} // namespace

Tone::~Tone() {
    Close();
}

void Tone::Play() {
    if (failed_ || IsOpen())
        return;
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        failed_ = true;
        return;
    }
    SDL_AudioSpec wanted{};
    wanted.freq = SampleRate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 1;
    wanted.samples = 512;
    // Sound libraries complain on the terminal when a machine without a device is asked for one.
    const bool hasDevice = SDL_GetNumAudioDevices(0) != 0;
    device_ = hasDevice ? SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0) : 0;
    if (device_ == 0) {
        failed_ = true;
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        return;
    }
    const auto tone = MakeTone();
    SDL_QueueAudio(device_, tone.data(), static_cast<Uint32>(sizeof(tone)));
    SDL_PauseAudioDevice(device_, 0);
    endTicks_ = SDL_GetTicks() + MillisecondsOpen;
}

void Tone::CloseWhenOver() {
    if (IsOpen() && SDL_TICKS_PASSED(SDL_GetTicks(), endTicks_))
        Close();
}

void Tone::Close() {
    if (!IsOpen())
        return;
    SDL_CloseAudioDevice(device_);
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    device_ = 0;
}

} // namespace device
