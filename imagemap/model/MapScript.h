#pragma once

#include "imagemap/model/JSMode.h"
#include "imagemap/model/LinkRules.h"
#include "imagemap/model/MapState.h"

#include <QObject>

class MapDocument;

/** What the script around the areas of a map shows. Every change is a step of the map. */
class MapScript final : public QObject
{
    Q_OBJECT

public:
    explicit MapScript(MapDocument& map);

    [[nodiscard]] JSMode Mode() const { return mode_; }

    /** The default image (switching images) or default text (text area) of the map. */
    [[nodiscard]] const QString& ModeDefault() const { return modeDefault_; }

    /** What stands above the messages of the areas: the mode's label, or one that tells the default. */
    [[nodiscard]] const QString& MessageHeader() const { return messageHeader_; }

    /** Chooses the mode and its label. */
    void SetMode(JSMode mode);

    /** Puts the label of the mode in force above the messages. */
    void ResetMessageHeader();

    void SetModeDefault(const QString& text);

    /** Empties the mode's default, and puts the mode's own label above the messages. */
    void ForgetModeDefault();

    /** Takes the mode's default from `entry`, where the mode has one. */
    void TakeModeDefault(const LinkEntry& entry);

    /** Becomes what it was in `state`, without a signal: the map is not all restored yet. */
    void Restore(const MapState& state);

Q_SIGNALS:
    void MessageHeaderChanged();

private:
    void SetMessageHeader(const QString& header);

    MapDocument& map_;
    JSMode mode_ = JSDisabled;
    QString modeDefault_;
    QString messageHeader_;
};
