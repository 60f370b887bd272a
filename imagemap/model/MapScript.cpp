#include "imagemap/model/MapScript.h"

#include "imagemap/model/MapDocument.h"

MapScript::MapScript(MapDocument& map)
    : map_(map)
{
}

void MapScript::SetModeDefault(const QString& text)
{
    const MapDocument::Step step(map_, QStringLiteral("Change of the Default"));
    modeDefault_ = text;
}

void MapScript::SetMode(JSMode mode)
{
    const MapDocument::Step step(map_, QStringLiteral("Change of the Java Script Options"));
    mode_ = mode;
    ResetMessageHeader();
}

void MapScript::SetMessageHeader(const QString& header)
{
    messageHeader_ = header;
    Q_EMIT MessageHeaderChanged();
}

void MapScript::ResetMessageHeader()
{
    SetMessageHeader(TextsOf(mode_).header.toString());
}

void MapScript::ForgetModeDefault()
{
    const MapDocument::Step step(map_, QStringLiteral("Change of the Default"));
    modeDefault_.clear();
    ResetMessageHeader();
}

void MapScript::TakeModeDefault(const LinkEntry& entry)
{
    const LinkRules& rules = RulesOf(mode_);
    if (rules.modeDefault) {
        SetModeDefault(entry.Text(*rules.modeDefault));
        SetMessageHeader(rules.headerStart.toString() + modeDefault_ + u"):");
    }
}

void MapScript::Restore(const MapState& state)
{
    mode_ = state.Mode;
    modeDefault_ = state.ModeDefault;
    messageHeader_ = state.MessageHeader;
}
