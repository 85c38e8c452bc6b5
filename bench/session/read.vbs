' Reads what the program reads, as a plain script does it. Its exit code is the time in microseconds.
Option Explicit

Dim application, begun
begun = Timer
Set application = CreateObject("AutoCAD.Application.18")
If WScript.Arguments(0) <> "start" Then begun = Timer

Select Case WScript.Arguments(0)
    Case "start"
        ReadTree True
        ReadLayout application.ActiveDocument
    Case "refresh"
        ReadTree False
    Case "plans"
        ReadPlans
    Case "click"
        ReadDrawing FindDrawing("C:\Projekte", "Plan 0.dwg")
End Select
WScript.Quit CLng((Timer - begun) * 1000000)

Sub ReadTree(first)
    Dim active, document, name, layout, text
    text = application.Preferences.Files.TemplateDwgPath
    active = application.ActiveDocument.Name
    For Each document In application.Documents
        name = document.Name
        text = document.Path & "\" & name
        For Each layout In document.Layouts
            text = layout.Name
            If first Then text = layout.ObjectID
        Next
        If name = active Then text = document.ActiveLayout.Name
    Next
End Sub

Sub ReadPlans()
    Dim document, layout, text
    For Each document In application.Documents
        text = document.FullName & document.GetVariable("CTAB") & document.GetVariable("DBMOD") & document.ReadOnly
        For Each layout In document.Layouts
            text = layout.Name
            If text <> "Model" Then
                text = layout.TabOrder & layout.ConfigName & layout.CanonicalMediaName & layout.StyleSheet
            End If
        Next
    Next
End Sub

Function FindDrawing(path, name)
    Dim document
    For Each document In application.Documents
        If document.Name = name Then
            If document.Path = path Then Set FindDrawing = document
        End If
    Next
End Function

Sub ReadDrawing(ByVal document)
    Dim layout, text
    For Each layout In document.Layouts
        text = layout.Name
        If text <> "Model" Then
            text = layout.ConfigName
            text = layout.GetLocaleMediaName(layout.CanonicalMediaName)
            text = layout.PlotRotation
            text = layout.StyleSheet
        End If
    Next
    text = document.ActiveLayout.Name
    Set document = application.ActiveDocument
    text = document.Path & "\" & document.Name
End Sub

Sub ReadLayout(ByVal document)
    Dim layout, text, width, height, entity, types, values
    Set layout = document.Layouts.Item(document.ActiveLayout.Name)
    text = layout.ConfigName
    text = layout.GetLocaleMediaName(layout.CanonicalMediaName)
    width = CDbl(0)
    height = CDbl(0)
    layout.GetPaperSize width, height
    text = layout.PlotRotation
    text = layout.StyleSheet
    text = layout.PlotType
    For Each entity In layout.Block
        text = entity.ObjectName
        If text = "AcDbViewport" Then entity.GetXData "Tarvix", types, values
    Next
    text = document.Path & "\" & document.Name
End Sub
