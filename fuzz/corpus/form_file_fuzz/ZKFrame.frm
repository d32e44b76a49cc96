ZKBaseGUIControls form 1
Begin ZKFrame F
  Left = 600
  Top = 300
  Width = 3000
  Height = 1500
  Visible = True
  Default = False
  Cancel = False
  ToolTipText = "frame, ""quoted"""
  TabIndex = 0
  TabStop = False
  Caption = "Settings"
  Begin ZKTextEdit B
    Left = 150
    Top = 450
    Width = 1215
    Height = 315
    Visible = True
    ToolTipText = ""
    TabIndex = 1
    TabStop = True
    Text = "12,5"
  End
  Begin ZKColorButton C
    Left = 1500
    Top = 450
    Width = 1215
    Height = 495
    Visible = True
    Default = False
    Cancel = False
    ToolTipText = ""
    TabIndex = 2
    TabStop = True
    Caption = "OK"
  End
End
