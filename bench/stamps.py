"""The stamps that are measured: boxes, rounded boxes and hexagons with text, border and background."""

SHAPES = ({"BorderShape": -4, "CornerRadius": 0}, {"BorderShape": -4, "CornerRadius": 2},
          {"BorderShape": 6, "CornerRadius": 0})


def stamp(number, **changes):
    return {"X": number % 300 * 60, "Y": number // 300 * 30, "Width": 40, "Height": 10, "Padding": 1,
            "Angle": number % 90, "Nx": 0, "Ny": 0, "Nz": 1, "Id": str(number), "DocumentVersionId": "",
            "Text": f"Checked {number}", "HorizontalAlignment": 1, "VerticalAlignment": 2, "OriginalImagePath": "",
            "EffectiveImageFileName": "", "Uniform": True, "Handle": "", "TextColor": "#FF102030",
            "BackgroundColor": "#FFFFFFCC", "BorderColor": "#FF0000FF", "BorderThickness": 0.5, "FitToText": False,
            "Font": "Arial", "LineSpacingFactor": 1, "FontSize": 2.5, **SHAPES[number % len(SHAPES)], **changes}


def create(count):
    return [stamp(number) for number in range(count)]


def modify(handles):
    """The stamps with these handles with another text, another shape and another colour."""
    return [stamp(number, Handle=handle, Text=f"Seen {number}", BackgroundColor="#FFCCFFCC",
                  **SHAPES[(number + 1) % len(SHAPES)])
            for number, handle in enumerate(handles)]
